#include "frame/help/HelpBrowser.h"

#include "frame/help/HelpPages.h"
#include "look/Theme.h"
#include "runtime/EventGuard.h"

#include <QResizeEvent>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr double pageMargin = 20;
constexpr double cellPadding = 4;
constexpr double tableMargin = 8;
constexpr double pictureMargin = 8;
constexpr double readingScale = 1.1;
constexpr double markedShare = 0.3;

/// Long lines of commands go on in the next line.
void breakLines(const QTextDocument& page) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (!block.blockFormat().nonBreakableLines())
            continue;
        QTextBlockFormat format = block.blockFormat();
        format.setNonBreakableLines(false);
        QTextCursor(block).setBlockFormat(format);
    }
}

void setPictureMargins(const QTextDocument& page) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (block.begin().atEnd() || !block.begin().fragment().charFormat().isImageFormat())
            continue;
        QTextBlockFormat format = block.blockFormat();
        format.setTopMargin(pictureMargin);
        format.setBottomMargin(pictureMargin);
        QTextCursor(block).setBlockFormat(format);
    }
}

} // namespace

HelpBrowser::HelpBrowser(const QString& folder, QWidget* parent) : QTextBrowser(parent), m_folder(folder) {
    document()->setDocumentMargin(pageMargin);
    QFont reading = font();
    reading.setPointSizeF(reading.pointSizeF() * readingScale);
    setFont(reading);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    connect(this, &QTextBrowser::sourceChanged, this, guarded([this] { dressPage(); }));
}

void HelpBrowser::markWords(const QStringList& words) {
    m_words = words;
    showMarks();
}

/// The marked row stands below the top of the page: what it belongs to can be read above it.
void HelpBrowser::showRow(const QString& text) {
    QTextCharFormat marked;
    marked.setBackground(mixed(palette().color(QPalette::Base), markColor(palette()), markedShare));
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        const auto* table = qobject_cast<QTextTable*>(frame);
        for (int row = 0; table != nullptr && row < table->rows(); ++row) {
            QTextCursor cell = table->cellAt(row, 0).firstCursorPosition();
            if (cell.block().text() != text)
                continue;
            QList<ExtraSelection> marks;
            for (int column = 0; column < table->columns(); ++column) {
                QTextCursor words = table->cellAt(row, column).firstCursorPosition();
                words.setPosition(table->cellAt(row, column).lastPosition(), QTextCursor::KeepAnchor);
                marks.append({words, marked});
            }
            setExtraSelections(marks);
            setTextCursor(cell);
            QScrollBar& bar = *verticalScrollBar();
            bar.setValue(bar.value() + cursorRect(cell).top() - viewport()->height() / 3);
            return;
        }
    }
}

/// Markdown has no table style, and the toolkit's own draws every line twice.
void HelpBrowser::dressPage() {
    setPictureMargins(*document());
    breakLines(*document());
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr)
            continue;
        QTextTableFormat format = table->format();
        format.setBorder(0);
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        format.setCellPadding(cellPadding);
        format.setTopMargin(tableMargin);
        format.setBottomMargin(tableMargin);
        table->setFormat(format);
    }
    showMarks();
}

void HelpBrowser::showMarks() {
    QTextCharFormat marked;
    marked.setBackground(palette().highlight());
    marked.setForeground(palette().highlightedText());
    QList<ExtraSelection> marks;
    for (const QString& word : m_words)
        for (QTextCursor found = document()->find(word); !found.isNull();
             found = document()->find(word, found))
            marks.append({found, marked});
    setExtraSelections(marks);
    if (!marks.isEmpty()) {
        const auto first = std::ranges::min_element(
            marks, {}, [](const ExtraSelection& mark) { return mark.cursor.selectionStart(); });
        QTextCursor place = first->cursor;
        place.clearSelection();
        setTextCursor(place);
    }
}

/// Measured with a scroll bar in place: otherwise a picture that just fits would make it come and go.
int HelpBrowser::pictureWidth() const {
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return std::max(1, contentsRect().width() - scrollBar - static_cast<int>(2 * pageMargin));
}

QImage HelpBrowser::fitted(const QImage& picture) const {
    const qreal ratio = devicePixelRatioF();
    const int widest = static_cast<int>(pictureWidth() * ratio);
    QImage shown =
        picture.width() > widest ? picture.scaledToWidth(widest, Qt::SmoothTransformation) : picture;
    shown.setDevicePixelRatio(ratio);
    return shown;
}

std::optional<QByteArray> HelpBrowser::fileAt(const QUrl& name) const {
    const QUrl place = source().resolved(name);
    return place.isLocalFile() ? readHelpFile(m_folder, place.toLocalFile()) : std::nullopt;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    const std::optional<QByteArray> bytes = fileAt(name);
    if (!bytes)
        return {};
    if (type != QTextDocument::ImageResource)
        return *bytes;
    const QImage picture = QImage::fromData(*bytes);
    m_pictures.insert(name, picture);
    return fitted(picture);
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (fileAt(name))
        QTextBrowser::doSetSource(name, type);
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    if (event->size().width() != event->oldSize().width())
        for (auto picture = m_pictures.cbegin(); picture != m_pictures.cend(); ++picture)
            document()->addResource(QTextDocument::ImageResource, picture.key(), fitted(picture.value()));
    QTextBrowser::resizeEvent(event);
}

} // namespace tarnwell
