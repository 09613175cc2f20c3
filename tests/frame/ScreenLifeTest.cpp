#include "data/RunTimeError.h"
#include "frame/Screen.h"
#include "look/Theme.h"
#include "runtime/RunTime.h"
#include "support/RememberedSettings.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

QStringList trace;

/// A form that traces its events. Field1 keeps what was typed until the form is made anew.
template <int Number>
class frmLife : public Screen {
public:
    frmLife() : Screen(QStringLiteral("frmLife%1").arg(Number), "Life", {Part::StatusBar}) {}

    QLineEdit* field = new QLineEdit(this);
    QPushButton* accept = new QPushButton("&Accept", this);
    QPushButton* cancel = new QPushButton("&Cancel", this);
    bool failsToLoad = false;
    bool failsToUnload = false;
    bool hidesOnClose = false;
    bool cancelled = true;

protected:
    void Form_Load() override {
        trace << entry("Load");
        if (failsToLoad)
            tarnwell::raise(Failure::NoSuchTable, "Job");
        auto* column = new QVBoxLayout(canvas());
        for (QWidget* control : std::initializer_list<QWidget*>{field, accept, cancel})
            column->addWidget(control);
        nameControl(field, "Field1");
        nameControl(accept, "cmdAccept");
        nameControl(cancel, "cmdCancel");
        connect(accept, &QPushButton::clicked, this, [this] {
            cancelled = false;
            Unload();
        });
        connect(cancel, &QPushButton::clicked, this, [this] { Hide(); });
        setDefaultButton(accept);
        setCancelButton(cancel);
        setDesignSize({300, 200});
    }
    void Form_Activate() override { trace << entry("Activate"); }
    void Form_Unload() override {
        trace << entry("Unload");
        if (failsToUnload)
            tarnwell::raise(Failure::DatabaseLocked);
    }
    void closeRequested() override {
        if (hidesOnClose)
            Hide();
        else
            Screen::closeRequested();
    }

private:
    static QString entry(const char* event) { return QStringLiteral("%1 %2").arg(event).arg(Number); }
};

struct ScreenLifeTest : ::testing::Test {
    ScreenLifeTest() { trace.clear(); }
    ~ScreenLifeTest() override { unloadRemainingForms(); }

    template <int Number>
    static frmLife<Number>& shown(QWidget* owner = nullptr) {
        auto& form = theForm<frmLife<Number>>();
        form.Show(Screen::Modality::Modeless, owner);
        EXPECT_TRUE(waitFor([&] { return form.isActiveWindow(); }));
        return form;
    }
};

QStringList names() {
    QStringList list;
    for (const Screen* form : loadedForms())
        list << form->objectName();
    return list;
}

} // namespace

TEST_F(ScreenLifeTest, ShownTwiceIsOneFormAndOneActivation) {
    frmLife<1>& form = shown<1>();
    EXPECT_EQ(&shown<1>(), &form);
    EXPECT_EQ(trace, QStringList({"Load 1", "Activate 1"}));
    EXPECT_EQ(names(), QStringList("frmLife1"));
    form.Unload();
    EXPECT_NE(&shown<1>(), &form);
    EXPECT_EQ(trace, QStringList({"Load 1", "Activate 1", "Unload 1", "Load 1", "Activate 1"}));
}

TEST_F(ScreenLifeTest, TheDesktopKnowsTheOwnerAlsoThroughAHiddenForm) {
    frmLife<1>& owner = shown<1>();
    frmLife<2>& owned = shown<2>(&owner);
    EXPECT_EQ(owned.windowHandle()->transientParent(), owner.windowHandle());
    EXPECT_EQ(owned.windowHandle()->type(), Qt::Dialog) << "the owner of other windows is not announced";
    EXPECT_EQ(owner.windowHandle()->type(), Qt::Window);
    owned.Hide();
    EXPECT_EQ(shown<3>(&owned).windowHandle()->transientParent(), owner.windowHandle());
}

TEST_F(ScreenLifeTest, ActivateComesBackFromAForm) {
    shown<1>();
    shown<2>(&theForm<frmLife<1>>());
    trace.clear();
    shown<1>();
    EXPECT_EQ(trace, QStringList("Activate 1"));
}

TEST_F(ScreenLifeTest, ActivateDoesNotComeBackFromAMessage) {
    frmLife<1>& form = shown<1>();
    trace.clear();
    whenModal([](QWidget& box) { box.close(); });
    QMessageBox::information(&form, "Notification", "No error log found!");
    form.activateWindow();
    ASSERT_TRUE(waitFor([&] { return form.isActiveWindow(); }));
    EXPECT_EQ(trace, QStringList());
}

TEST_F(ScreenLifeTest, HiddenFormKeepsItsFieldsAndActivatesAgain) {
    frmLife<1>& form = shown<1>();
    form.field->setText("kept");
    form.hidesOnClose = true;
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(form.isLoaded());
    EXPECT_EQ(shown<1>().field->text(), "kept");
    EXPECT_EQ(trace, QStringList({"Load 1", "Activate 1", "Activate 1"}));
}

TEST_F(ScreenLifeTest, TheTitleBarUnloads) {
    shown<1>().close();
    EXPECT_EQ(trace.last(), "Unload 1");
    EXPECT_TRUE(loadedForms().empty());
}

TEST_F(ScreenLifeTest, ModalReturnsWhenUnloadedAndItsFieldsCanStillBeRead) {
    frmLife<1>& owner = shown<1>();
    auto& dialog = theForm<frmLife<2>>();
    whenModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    dialog.Show(Screen::Modality::Modal, &owner);
    EXPECT_TRUE(dialog.isUnloaded());
    EXPECT_FALSE(dialog.cancelled);
    EXPECT_TRUE(waitFor([&] { return owner.isActiveWindow(); }));
    EXPECT_EQ(trace, QStringList({"Load 1", "Activate 1", "Load 2", "Activate 2", "Unload 2", "Activate 1"}));
}

TEST_F(ScreenLifeTest, ModalReturnsWhenHiddenByEscape) {
    frmLife<1>& owner = shown<1>();
    auto& dialog = theForm<frmLife<2>>();
    whenModal([&](QWidget& window) {
        EXPECT_EQ(&window, &dialog);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    dialog.Show(Screen::Modality::Modal, &owner);
    EXPECT_TRUE(dialog.isLoaded());
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ScreenLifeTest, AFailedLoadLeavesNoForm) {
    theForm<frmLife<1>>().failsToLoad = true;
    EXPECT_THROW(theForm<frmLife<1>>().Show(Screen::Modality::Modeless, nullptr), RunTimeError);
    EXPECT_TRUE(loadedForms().empty());
    EXPECT_TRUE(shown<1>().isLoaded());
}

TEST_F(ScreenLifeTest, AFailedUnloadLeavesTheFormOpen) {
    frmLife<1>& form = shown<1>();
    form.failsToUnload = true;
    EXPECT_THROW(form.Unload(), RunTimeError);
    EXPECT_TRUE(form.isVisible());
    form.failsToUnload = false;
    form.Unload();
    EXPECT_TRUE(loadedForms().empty());
}

TEST_F(ScreenLifeTest, ClosingAllSkipsFormsAndTheRestIsUnloadedAfterwards) {
    shown<1>();
    shown<2>();
    shown<3>();
    shown<4>();
    EXPECT_EQ(names(), QStringList({"frmLife1", "frmLife2", "frmLife3", "frmLife4"}));
    CloseAllForms();
    EXPECT_EQ(names(), QStringList({"frmLife2", "frmLife4"}));
    unloadRemainingForms();
    EXPECT_TRUE(loadedForms().empty());
    EXPECT_EQ(trace.filter("Unload"), QStringList({"Unload 1", "Unload 3", "Unload 4", "Unload 2"}));
}

TEST_F(ScreenLifeTest, OpensAtItsDesignSizeAndFollowsTheWindow) {
    frmLife<1>& form = shown<1>();
    const QSize design = form.canvas()->size();
    EXPECT_EQ(design, QSize(scaledToText(300, form), scaledToText(200, form)));
    EXPECT_EQ(form.canvas()->layout(), nullptr);
    const QRect before = form.cancel->geometry();
    form.resize(form.size() + design);
    ASSERT_TRUE(waitFor([&] { return form.canvas()->size() == design * 2; }));
    EXPECT_EQ(form.cancel->geometry(), QRect(before.topLeft() * 2, before.size() * 2));
    form.resize(90, 60);
    ASSERT_TRUE(waitFor([&] { return form.canvas()->width() == 90; }));
    EXPECT_LT(form.cancel->width(), before.width() / 3);
}

TEST_F(ScreenLifeTest, StatusBarShowsCapsLockAndTheClock) {
    const auto before = setClock([] { return DateTime{QDate(2002, 1, 15), QTime(14, 5, 59, 990)}; });
    frmLife<1>& form = shown<1>();
    const auto* caps = form.findChild<QLabel*>("StatusBar1(2)");
    const auto* clock = form.findChild<QLabel*>("StatusBar1(3)");
    EXPECT_EQ(clock->text(), "02:05 PM");
    setClock([] { return DateTime{QDate(2002, 1, 15), QTime(14, 6, 0)}; });
    EXPECT_TRUE(waitFor([&] { return clock->text() == "02:06 PM"; }));
    setClock(before);

    EXPECT_EQ(caps->text(), "");
    QTest::keyClick(form.windowHandle(), Qt::Key_CapsLock);
    EXPECT_EQ(caps->text(), "CAPS");
    QTest::keyClick(form.windowHandle(), 'a');
    EXPECT_EQ(caps->text(), "");
}

TEST_F(ScreenLifeTest, AWindowComesBackAsTheUserLeftIt) {
    const RememberedSettings settings;
    const QRect usual = shown<1>().geometry();
    theForm<frmLife<1>>().Unload();
    EXPECT_EQ(remembered("Window frmLife1"), "") << "nobody moved it: it follows the design";
    const QRect moved(usual.x() + 30, usual.y() - 20, usual.width() + 40, usual.height() + 10);
    shown<1>().setGeometry(moved);
    theForm<frmLife<1>>().Hide();
    theForm<frmLife<1>>().Unload();
    RememberedSettings::endProgram();
    EXPECT_EQ(shown<1>().geometry(), moved);
    theForm<frmLife<1>>().showMaximized();
    theForm<frmLife<1>>().Unload();
    RememberedSettings::endProgram();
    EXPECT_TRUE(shown<1>().isMaximized());
    EXPECT_EQ(theForm<frmLife<1>>().normalGeometry(), moved);
    EXPECT_EQ(shown<2>().geometry().size(), usual.size()) << "each has its own";
}

TEST_F(ScreenLifeTest, AWindowIsWhollyOnADisplayWhateverWasKept) {
    const RememberedSettings settings;
    const QRect usual = shown<1>().geometry();
    const QString design =
        QStringLiteral("%1x%2 ").arg(usual.width()).arg(theForm<frmLife<1>>().canvas()->height());
    theForm<frmLife<1>>().Unload();
    const auto kept = [](const QRect& place) {
        QWidget window;
        window.setGeometry(place);
        return QString::fromLatin1(window.saveGeometry().toBase64());
    };
    const QString whole = kept({20, 20, 300, 250});
    const std::pair<QString, QSize> cases[] = {
        {design + whole, {300, 250}},
        {design + kept({5000, -4000, 300, 250}), {300, 250}},
        {"10x10 " + whole, usual.size()},
        {design + whole.left(whole.size() / 2), usual.size()},
        {design + "AdnQywADAAA/////////////////////////////", usual.size()},
        {whole, usual.size()},
        {design, usual.size()},
        {"no place", usual.size()},
    };
    for (const auto& [text, size] : cases) {
        remember("Window frmLife1", text);
        const frmLife<1>& form = shown<1>();
        EXPECT_EQ(form.size(), size) << text.toStdString();
        EXPECT_TRUE(form.screen()->availableGeometry().contains(form.geometry())) << text.toStdString();
        theForm<frmLife<1>>().Unload();
    }
}

} // namespace tarnwell::test
