#pragma once

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QString>

namespace tarnwell {

/// The pages that a print can take from.
struct PageChoice {
    int count = 1;
    int current = 1; ///< The one in front of the user.
};

/// Which printer, with which paper and sides.
class PrinterChoice {
public:
    explicit PrinterChoice(const QPrinter& printer);

    void restore(QPrinter& printer) const;
    [[nodiscard]] const QString& name() const { return m_name; }
    [[nodiscard]] const QPageLayout& paper() const { return m_paper; }

private:
    QString m_name;
    QPageLayout m_paper;
    QPrinter::DuplexMode m_sides;
    QPrinter::ColorMode m_colors;
};

/// The paper that a printer of that name has when nobody chooses: what the system says, else Letter.
[[nodiscard]] QPageSize ownPaper(const QString& printerName);

/// The toolkit's print dialog. The printer always gets the chosen pages as page ranges, within those that
/// exist. The dialog reads its fields for them itself: the toolkit refuses typed ranges that are right, and
/// leaves odd and even pages set for the next print.
class PrintDialog : public QPrintDialog {
public:
    PrintDialog(QPrinter* printer, PageChoice pages, QWidget* owner);

    /// Says so and stays when the report has none of the pages.
    void accept() override;

private:
    /// Null where the system's own dialog stands in its place.
    template <typename Part>
    [[nodiscard]] Part* part(const char* name) const {
        return findChild<Part*>(QLatin1String(name));
    }
    [[nodiscard]] bool isChosen(const char* button) const;
    [[nodiscard]] QPageRanges chosenPages() const;

    PageChoice m_pages;
};

/// Shows the dialog. A dialog given up leaves the printer as it was, and the paper stays the one chosen
/// before until the user chooses another printer or paper; the toolkit keeps neither.
bool execKeepingPaper(QPrintDialog& dialog);

} // namespace tarnwell
