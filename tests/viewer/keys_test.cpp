#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

/// The main window by keyboard alone.
class TestKeys : public QObject {
    Q_OBJECT

    static void key(const ViewerWindow& view, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QWidget* focus = view.window->focusWidget();
        QTest::keyClick(focus != nullptr ? focus : view.window.get(), key, with);
    }
    static QString focus(const ViewerWindow& view) {
        const QWidget* widget = view.window->focusWidget();
        return widget == nullptr ? QString() : widget->objectName();
    }
    static bool isViewing(const ViewerWindow& view) { return view.shows(u"pic0"_s) && !view.key(u"ty"_s)->isEnabled(); }

  private Q_SLOTS:
    void enterOpensThePictureWithTheFocus() {
        const OpenPage page(3);
        key(page, Qt::Key_Return);
        QVERIFY(isViewing(page));
        QVERIFY(page.find<CaptionBox>(u"txtB0"_s)->text().contains(u"1 "));
        key(page, Qt::Key_Escape);
        QVERIFY(!isViewing(page));

        for (const Qt::Key arrow : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left}) key(page, arrow);
        QCOMPARE(focus(page), u"imgXs(1)"_s);
        key(page, Qt::Key_Return);
        QVERIFY(isViewing(page));
        QCOMPARE(page.find<CaptionBox>(u"txtB0"_s)->text(), page.image(u"imgXs(1)"_s)->tag());
        // The strip of data comes and goes.
        for (const bool shown : {false, true}) {
            key(page, Qt::Key_Space);
            QCOMPARE(page.shows(u"txtB0"_s), shown);
        }
    }

    /// Drawing a page hides the cells for a moment: the focus must not fall into a box that keys write into.
    void theFocusStaysWhilePagesTurn() {
        const OpenPage page(2);
        key(page, Qt::Key_Right);
        key(page, Qt::Key_Right);
        QCOMPARE(focus(page), u"imgXs(1)"_s);
        key(page, Qt::Key_PageDown);
        QCOMPARE(page.pictureIn(0), 5);
        QCOMPARE(focus(page), u"imgXs(1)"_s);
        key(page, Qt::Key_Home);
        QCOMPARE(page.pictureIn(0), 1);
        key(page, Qt::Key_1);
        QCOMPARE(page.text(u"txtLs"_s), u"1列"_s);
        QCOMPARE(focus(page), u"imgXs(0)"_s);
    }

    void digitsChooseColumns() {
        const OpenPage page(2);
        for (const auto& [digit, columns] : {std::pair(Qt::Key_7, 2), {Qt::Key_6, 6}, {Qt::Key_3, 3}}) {
            key(page, digit);
            QCOMPARE(page.text(u"txtLs"_s), u"%1列"_s.arg(columns));
            QVERIFY(page.shows(u"imgXs(%1)"_s.arg(columns * columns - 1)));
        }
    }

    void spaceStopsTheShowAndGoesOn() {
        const OpenPage page(1);
        ViewerWindow::setSetting(u"幻灯延时"_s, 5000);
        for (const QString& image : {u"hb"_s, u"hd"_s, u"hb"_s}) {
            key(page, Qt::Key_Space);
            QCOMPARE(page.keyImage(u"hd"_s), image);
        }
    }

    void boxesKeepTheirKeys() {
        const OpenPage page(2);
        page.box(u"txtYh"_s)->setFocus();
        key(page, Qt::Key_3);
        QCOMPARE(page.text(u"txtYh"_s), u"3"_s);
        QCOMPARE(page.text(u"txtLs"_s), u"2列"_s);
        key(page, Qt::Key_Home);
        QCOMPARE(page.box(u"txtYh"_s)->cursorPosition(), 0);
    }

    void listsOpenByKeyAndGiveTheFocusBack() {
        const OpenPage page(2);
        page.box(u"txtLs"_s)->setFocus();
        key(page, Qt::Key_Down, Qt::AltModifier);
        QVERIFY(page.shows(u"lstLs"_s));
        QCOMPARE(focus(page), u"lstLs"_s);
        key(page, Qt::Key_Escape);
        QVERIFY(!page.shows(u"lstLs"_s));
        QCOMPARE(focus(page), u"txtLs"_s);
        for (const Qt::Key next : {Qt::Key_F4, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) key(page, next);
        QCOMPARE(page.text(u"txtLs"_s), u"3列"_s);

        page.key(u"dk"_s)->setFocus();
        key(page, Qt::Key_Return);  // closes the album
        key(page, Qt::Key_Return);
        QCOMPARE(focus(page), u"lstLs"_s);
    }

    void selectionButtonsWorkByEnter() {
        const ViewerWindow view;
        view.openAlbum(1);
        view.image(u"imgAn(1)"_s)->setFocus(Qt::TabFocusReason);
        key(view, Qt::Key_Return);
        QVERIFY(view.panel(2).contains(u"风景"));
        QCOMPARE(focus(view), u"imgAn(1)"_s);
    }

    void smallDialogsTakeTheFocus() {
        const OpenPage page(1);
        for (const auto& [opener, dialog] : {std::pair(u"rq"_s, u"picRq"_s), {u"sj"_s, u"picYc"_s}}) {
            page.key(opener)->setFocus();
            key(page, Qt::Key_Return);
            QVERIFY(page.find(dialog)->isAncestorOf(page.window->focusWidget()));
            key(page, Qt::Key_2);
            QCOMPARE(page.text(u"txtLs"_s), u"1列"_s);
            key(page, Qt::Key_Escape);
            QVERIFY(!page.shows(dialog));
            QVERIFY(qobject_cast<QLineEdit*>(page.window->focusWidget()) == nullptr);
        }
    }
};

const Registered<TestKeys> registered;

#include "keys_test.moc"
