#pragma once

#include "reports/drawing/PageSurface.h"
#include "reports/output/PageOutput.h"

#include <QObject>

#include <functional>
#include <memory>
#include <utility>

class QWidget;

namespace tarnwell {

/// The drawing surface of a report form: pages in the report database, shown in the preview or printed on the
/// current printer.
class ctlAHPrintPreview : public QObject, public PageSurface {
    Q_OBJECT

public:
    /// Shows the pages until the user is done with them. The title names report and PDF.
    using Preview = std::function<void(const ReportPages& report, const QString& title, QWidget* owner)>;

    /// The form that it stands on: its window owns the preview, its caption is the title.
    explicit ctlAHPrintPreview(QWidget* form);

    /// "Provider=...;Data Source=...;..."; the report database is not opened before `NewReport`.
    void setConnectionString(const QString& text);
    [[nodiscard]] const QString& connectionString() const { return m_connectionString; }

    /// Follows the pages on their way into the report database. Once it says false, nobody else waits for
    /// that file, and `goesOn` decides whether they are stored all the same.
    void setFollowStoring(FollowPages follow, std::function<bool()> goesOn) {
        m_followStoring = std::move(follow);
        m_goesOn = std::move(goesOn);
    }
    [[nodiscard]] bool isStoring() const { return m_storing; }
    /// Follows a print; may end it. The preview follows its own prints.
    void setFollowPrint(FollowPages follow) { m_followPrint = std::move(follow); }

    /// The pages of this surface's run before are cleared. A report database that is damaged or foreign is
    /// set aside after a message and made anew. Raises what opening it raises, also when the user says
    /// Cancel.
    qint64 NewReport() override;
    /// Shows the pages, or prints them on the current printer; returns when the user is done. The form is
    /// hidden once the pages are shown. A message says when the printer is missing or fails. Does nothing
    /// when `goesOn` returned false.
    void ShowReport(qint64 ReportKey, bool preview);

    /// Replaces the preview window, for tests. Returns the one before.
    static Preview setPreview(Preview preview);

protected:
    void store(qint64 reportKey, const PageText& text) override;
    void store(qint64 reportKey, const PageLine& line) override;

private:
    [[nodiscard]] qint64 startReport();
    [[nodiscard]] PageStore& pages() const;
    [[nodiscard]] bool storePages(qint64 reportKey);

    QString m_connectionString;
    FollowPages m_followStoring;
    std::function<bool()> m_goesOn;
    bool m_storing = false;
    FollowPages m_followPrint;
    std::unique_ptr<PageStore> m_pages;
};

} // namespace tarnwell
