#pragma once

#include "reports/PageStore.h"
#include "reports/PageSurface.h"

#include <QObject>

#include <functional>
#include <memory>

class QWidget;

namespace tarnwell {

/// The drawing surface of a report form: pages in the report database, shown in the preview or printed on the
/// current printer.
class ctlAHPrintPreview : public QObject, public PageSurface {
    Q_OBJECT

public:
    /// Shows the pages until the user is done with them. The title names report and PDF.
    using Preview = std::function<void(const StoredReport& report, const QString& title, QWidget* owner)>;

    /// The form that it stands on: its window owns the preview, its caption is the title.
    explicit ctlAHPrintPreview(QWidget* form);

    /// "Provider=...;Data Source=...;..."; the report database is not opened before `NewReport`.
    void setConnectionString(const QString& text);
    [[nodiscard]] const QString& connectionString() const { return m_connectionString; }

    /// Raises what opening the report database raises. The pages of this surface's run before are cleared.
    qint64 NewReport() override;
    /// A report without pages shows and prints nothing. Raises PrinterError when there is no printer or it
    /// fails; the pages stay.
    void ShowReport(qint64 ReportKey, bool preview) override;

    /// The preview window, which the program hands in at its start. Returns the one before.
    static Preview setPreview(Preview preview);

protected:
    void store(qint64 reportKey, const PageText& text) override;
    void store(qint64 reportKey, const PageLine& line) override;

private:
    [[nodiscard]] PageStore& pages() const;

    QString m_connectionString;
    std::unique_ptr<PageStore> m_pages;
};

} // namespace tarnwell
