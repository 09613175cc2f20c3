#include "look/Icons.h"

#include "look/Theme.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

/// The images are compiled into a static library, whose resources the linker would leave out unasked.
static void registerImages() {
    Q_INIT_RESOURCE(resources);
}

namespace tarnwell {

namespace {

/// The colour in which the images' lines are drawn in their files.
/// Every other colour is an accent that has contrast on light and dark.
constexpr auto drawnLineColor = "#6b7785";
constexpr double disabledOpacity = 0.35;

/// A little softer than text: an icon's lines are bolder than letters.
QColor lineColor() {
    const QPalette palette = QGuiApplication::palette();
    return mixed(palette.color(QPalette::Active, QPalette::WindowText), palette.color(QPalette::Window),
                 0.25);
}

/// Draws one of our images at any size, once for each size and colour. It needs no plug-in and follows the
/// palette.
class LineIconEngine : public QIconEngine {
public:
    LineIconEngine(QString path, QByteArray image) : m_path(std::move(path)), m_image(std::move(image)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double scale = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        const QColor line = lineColor();
        const QString key = QStringLiteral("%1 %2x%3 %4 %5")
                                .arg(m_path)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode == QIcon::Disabled)
                                .arg(line.rgb());
        QPixmap drawn;
        if (!QPixmapCache::find(key, &drawn)) {
            drawn = draw(size, line, mode == QIcon::Disabled ? disabledOpacity : 1);
            QPixmapCache::insert(key, drawn);
        }
        return drawn;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new LineIconEngine(*this); }

private:
    [[nodiscard]] QPixmap draw(const QSize& size, const QColor& line, double opacity) const {
        QByteArray image = m_image;
        image.replace(drawnLineColor, line.name().toLatin1());
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        painter.setOpacity(opacity);
        QSvgRenderer(image).render(&painter, QRect(QPoint(), size));
        return drawn;
    }

    QString m_path;
    QByteArray m_image;
};

QIcon iconAt(const QString& path) {
    static const bool registered = (registerImages(), true);
    QFile file(path);
    if (!registered || !file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new LineIconEngine(path, file.readAll()));
}

} // namespace

QIcon toolbarIcon(const QString& imageKey) {
    return iconAt(QStringLiteral(":/icons/toolbar/%1.svg").arg(imageKey));
}

QIcon barIcon(const QString& imageKey) {
    return iconAt(QStringLiteral(":/icons/bar/%1.svg").arg(imageKey));
}

QIcon messageIcon(const QString& kind) {
    return iconAt(QStringLiteral(":/icons/message/%1.svg").arg(kind));
}

QIcon programIcon() {
    return iconAt(QStringLiteral(":/icons/tarnwell.svg"));
}

} // namespace tarnwell
