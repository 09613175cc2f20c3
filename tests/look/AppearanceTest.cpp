#include "frame/MessagePresenter.h"
#include "frame/modFormRoutines.h"
#include "look/Icons.h"
#include "look/PlaceBeside.h"
#include "look/ProgramStyle.h"
#include "look/SharedPalettes.h"
#include "look/Theme.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

/// Mean lightness of what an icon draws; its transparent part does not count.
double lightness(const QIcon& icon, QIcon::Mode mode = QIcon::Normal) {
    const QImage image = icon.pixmap(QSize(32, 32), 1.0, mode).toImage();
    double sum = 0;
    double weight = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            sum += color.lightnessF() * color.alphaF();
            weight += color.alphaF();
        }
    return weight > 0 ? sum / weight : -1;
}

} // namespace

TEST(SharedPalette, IsOneForEqualColoursAndKeepsTheColourGroup) {
    const auto paletteOf = [](Qt::GlobalColor color) {
        QPalette palette;
        palette.setColor(QPalette::Button, color);
        return palette;
    };
    QPalette second = paletteOf(Qt::red);
    second.setCurrentColorGroup(QPalette::Disabled);
    const QPalette first = sharedPalette(paletteOf(Qt::red));
    EXPECT_EQ(sharedPalette(second).cacheKey(), first.cacheKey());
    EXPECT_EQ(sharedPalette(second).currentColorGroup(), QPalette::Disabled);
    EXPECT_NE(sharedPalette(paletteOf(Qt::blue)).cacheKey(), first.cacheKey());
    // Many short-lived widgets later it is still the same.
    for (int i = 0; i < 3000; ++i)
        ASSERT_EQ(sharedPalette(paletteOf(Qt::red)).cacheKey(), first.cacheKey());
}

TEST(Message, AKeyGivesTheAnswer) {
    const struct {
        MessageButtons buttons;
        int defaultButton;
        Qt::Key key;
        Answer answer;
    } cases[] = {{MessageButtons::YesNo, 1, Qt::Key_Return, Answer::Yes},
                 {MessageButtons::YesNo, 2, Qt::Key_Return, Answer::No},
                 {MessageButtons::YesNo, 1, Qt::Key_Escape, Answer::No},
                 {MessageButtons::OkCancel, 1, Qt::Key_Escape, Answer::Cancel},
                 {MessageButtons::YesNoCancel, 1, Qt::Key_Escape, Answer::Cancel},
                 {MessageButtons::Ok, 1, Qt::Key_Escape, Answer::Ok}};
    for (const auto& [buttons, defaultButton, key, answer] : cases) {
        whenModal([pressed = key](QWidget& box) { QTest::keyClick(&box, pressed); });
        EXPECT_EQ(presentMessage({.text = "Pay this employee again?",
                                  .title = "Payment Error!",
                                  .buttons = buttons,
                                  .defaultButton = defaultButton}),
                  answer);
    }
}

TEST(Message, ShowsTextTitleIconAndButtonsToTheLetter) {
    const QString text = "Price <b>entered</b> & more\nContinue paying task?";
    QStringList captions;
    whenModal([&](QWidget& front) {
        auto& box = dynamic_cast<QMessageBox&>(front);
        EXPECT_EQ(box.objectName(), "msgBox");
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Payment Error!");
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        for (const QAbstractButton* button : box.buttons())
            captions << button->text();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&front));
        QTest::keyClick(&front, Qt::Key_Y, Qt::AltModifier);
    });
    EXPECT_EQ(presentMessage({.text = text,
                              .title = "Payment Error!",
                              .buttons = MessageButtons::YesNo,
                              .icon = MessageIcon::Critical}),
              Answer::Yes);
    captions.sort();
    EXPECT_EQ(captions, (QStringList{"&No", "&Yes"}));
}

TEST(Icons, EveryButtonThatHasAKeyShowsItsImage) {
    for (const ToolbarButton& row : toolbarButtons())
        if (*row.shortcut != '\0') {
            EXPECT_GE(lightness(toolbarIcon(QLatin1String(row.imageKey))), 0) << row.key;
        }
    EXPECT_TRUE(toolbarIcon("Wizard").isNull());
}

TEST(Icons, MessagesHaveTheProgramsOwnAtEveryScale) {
    const ProgramStyle style;
    QSet<QString> shades;
    for (const auto kind : {QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion,
                            QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical}) {
        const QIcon icon = style.standardIcon(kind, nullptr, nullptr);
        EXPECT_EQ(icon.pixmap(QSize(48, 48), 2.0).size(), QSize(96, 96)) << kind;
        shades << QString::number(lightness(icon));
    }
    EXPECT_EQ(shades.size(), 4);
}

TEST(Icons, LinesFollowThePalette) {
    const QPalette before = QApplication::palette();
    const QIcon icon = toolbarIcon("Lookup");
    QApplication::setPalette(QPalette(Qt::white));
    const double onLight = lightness(icon);
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    EXPECT_GT(lightness(icon), onLight + 0.2);
    QApplication::setPalette(before);
}

TEST(Theme, LinksCanBeReadOnLightAndDark) {
    for (const QColor base : {QColor(Qt::white), QColor(0x20, 0x20, 0x20)}) {
        QPalette desktop;
        desktop.setColor(QPalette::Base, base);
        const QColor link = refinements(desktop).color(QPalette::Link);
        EXPECT_GT(qAbs(link.lightness() - base.lightness()), 90) << base.name().toStdString();
    }
}

TEST(Theme, ASelectionStandsOffFromTheBaseAndItsTextFromItInAQuietWindow) {
    for (const auto& [base, text] : {std::pair(QColor(Qt::white), QColor(Qt::black)),
                                     std::pair(QColor(0x2d, 0x2d, 0x2d), QColor(Qt::white))}) {
        QPalette desktop;
        desktop.setColor(QPalette::Base, base);
        desktop.setColor(QPalette::Text, text);
        desktop.setColor(QPalette::Highlight, QColor(0x15, 0x53, 0x9e));
        const QColor quiet = refinements(desktop).color(QPalette::Inactive, QPalette::Highlight);
        EXPECT_GT(qAbs(quiet.lightness() - base.lightness()), 25) << base.name().toStdString();
        EXPECT_GT(qAbs(quiet.lightness() - text.lightness()), 120) << base.name().toStdString();
    }
}

TEST(Theme, OutlinesCanBeSeenOnADarkWindowAndTellWhatIsOnlyRead) {
    const QColor window(0x2a, 0x2e, 0x32);
    ProgramStyle style;
    const auto lightest = [&](QWidget& widget) {
        widget.setStyle(&style);
        QPalette dark(QColor(0x31, 0x36, 0x3b), window);
        dark.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
        widget.setPalette(dark);
        widget.resize(widget.sizeHint());
        const QImage image = widget.grab().toImage();
        int found = 0;
        for (int x = 0; x < 10; ++x)
            found = std::max(found, image.pixelColor(x, image.height() / 2).lightness());
        return found - window.lightness();
    };
    QCheckBox tick;
    QRadioButton option;
    QLineEdit field;
    QListWidget list;
    QPlainTextEdit note;
    QComboBox combo;
    QPushButton button;
    for (QWidget* widget :
         std::initializer_list<QWidget*>{&tick, &option, &field, &list, &note, &combo, &button})
        EXPECT_GT(lightest(*widget), 60) << widget->metaObject()->className();
    field.setReadOnly(true);
    combo.setEnabled(false);
    for (QWidget* widget : std::initializer_list<QWidget*>{&field, &combo})
        EXPECT_LT(lightest(*widget), 60) << widget->metaObject()->className();
}

TEST(Theme, TicksAndMessageIconsGrowWithTheFont) {
    const ProgramStyle style;
    QCheckBox tick;
    QFont font = tick.font();
    const auto side = [&](QStyle::PixelMetric metric, int points) {
        font.setPointSize(points);
        tick.setFont(font);
        return style.pixelMetric(metric, nullptr, &tick);
    };
    for (const auto metric :
         {QStyle::PM_IndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight, QStyle::PM_MessageBoxIconSize})
        EXPECT_NEAR(side(metric, 18), 2 * side(metric, 9), 3) << metric;
}

TEST(Theme, AWindowComesBesideAnotherWhereThereIsSpace) {
    const QRect desktop(0, 0, 1920, 1080);
    const QSize size(700, 600);
    const struct {
        QRect what;
        QPoint corner;
    } cases[] = {{{100, 200, 900, 500}, {1003, 200}},
                 {{1000, 700, 900, 300}, {280, 440}},
                 {{300, 10, 1300, 300}, {300, 313}},
                 {{300, 700, 1300, 300}, {300, 56}}};
    for (const auto& [what, corner] : cases)
        EXPECT_EQ(placeBeside(what, size, desktop), corner) << what.left() << ' ' << what.top();
    EXPECT_EQ(placeBeside({300, 300, 1300, 500}, size, desktop), std::nullopt);
}

TEST(Theme, WidthsGrowWithALargerFontOnly) {
    QWidget widget;
    QFont font = widget.font();
    font.setPointSize(9);
    widget.setFont(font);
    EXPECT_NEAR(scaledToText(100, widget), 100, 10);
    font.setPointSize(5);
    widget.setFont(font);
    EXPECT_EQ(scaledToText(100, widget), 100);
    font.setPointSize(18);
    widget.setFont(font);
    EXPECT_NEAR(scaledToText(100, widget), 200, 20);
}

} // namespace tarnwell::test
