#include "platform/desktop/text_box.h"

#include "desktop.h"

using namespace Qt::Literals::StringLiterals;

class TestTextBox : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void focusIsToldWithinTheProgram() {
        QWidget form;
        auto* first = new TextBox(&form);
        auto* second = new TextBox(&form);
        second->move(0, 40);
        QVERIFY(isShown(form));
        second->setFocus();
        QSignalSpy got(first, &TextBox::gotFocus);
        QSignalSpy lost(first, &TextBox::lostFocus);
        first->setFocus();
        QCOMPARE(got.size(), 1);
        {  // Another window in front is no loss.
            QDialog dialog(&form);
            dialog.setModal(true);
            dialog.show();
            dialog.activateWindow();
            QTRY_VERIFY(!first->hasFocus());
        }
        form.activateWindow();
        QTRY_VERIFY(first->hasFocus());
        QVERIFY(got.size() == 1 && lost.isEmpty());
        second->setFocus();
        QCOMPARE(lost.size(), 1);
    }

    void enterIsTold() {
        TextBox box;
        QSignalSpy enter(&box, &TextBox::enterPressed);
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClick(&box, Qt::Key_Enter);
        QTest::keyClick(&box, Qt::Key_A);
        QCOMPARE(enter.size(), 2);
        QCOMPARE(box.text(), u"a"_s);
    }

    void lockedBoxTakesTheFocusButNoTyping() {
        QWidget form;
        auto* box = new TextBox(&form);
        box->setText(u"12"_s);
        box->setLocked(true);
        QVERIFY(isShown(form));
        QSignalSpy clicked(box, &TextBox::clicked);
        QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(box->hasFocus());
        QTest::keyClick(box, Qt::Key_3);
        QCOMPARE(box->text(), u"12"_s);
        QVERIFY(box->isLocked());
        QCOMPARE(clicked.size(), 1);
        QTest::mousePress(box, Qt::LeftButton);
        QTest::mouseRelease(box, Qt::LeftButton, {}, QPoint(-5, -5));
        QCOMPARE(clicked.size(), 1);
    }

    void typingStopsAtTheLimit() {
        TextBox box;
        box.setTypingLimit(5);
        const auto commit = [&](const QString& text) {
            QInputMethodEvent words;
            words.setCommitString(text);
            QApplication::sendEvent(&box, &words);
        };
        QTest::keyClicks(&box, u"abcdefg"_s);
        QCOMPARE(box.text(), u"abcde"_s);
        box.setSelection(1, 2);
        QTest::keyClicks(&box, u"xyz"_s);  // in place of what is selected
        QCOMPARE(box.text(), u"axyde"_s);
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_End, Qt::Key_Backspace})
            QTest::keyClick(&box, key);
        QCOMPARE(box.text(), u"xyd"_s);
        commit(u"一二三"_s);
        QCOMPARE(box.text(), u"xyd一二"_s);
        box.setText(u"xyd一"_s);
        commit(u"😀"_s);  // two units, of which one would be none
        QCOMPARE(box.text(), u"xyd一"_s);
        QVERIFY(!box.isTooLong());

        // A paste stays whole and can be cut by hand.
        QApplication::clipboard()->setText(u"123456789"_s);
        box.selectAll();
        QTest::keySequence(&box, QKeySequence::Paste);
        QCOMPARE(box.text(), u"123456789"_s);
        QVERIFY(box.isTooLong());
        QTest::keyClicks(&box, u"0"_s);
        commit(u"零"_s);
        QCOMPARE(box.text(), u"123456789"_s);
        box.setTypingLimit(0);
        QTest::keyClicks(&box, u"0"_s);
        commit(u"零"_s);
        QCOMPARE(box.text(), u"1234567890零"_s);
        QVERIFY(!box.isTooLong());
    }

    void captionIsClickedButNeverFocused() {
        QWidget form;
        form.resize(120, 80);
        auto* other = new TextBox(&form);
        other->setGeometry(0, 50, 100, 20);
        auto* caption = new CaptionBox(&form);
        caption->setGeometry(0, 0, 100, 40);
        caption->setText(u"一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十"_s);
        QVERIFY(isShown(form));
        other->setFocus();
        QSignalSpy clicked(caption, &CaptionBox::clicked);
        QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, {20, 20});
        QCOMPARE(clicked.size(), 1);
        QVERIFY(other->hasFocus());
        QCOMPARE(caption->property("text").toString().size(), 30);
        QVERIFY(caption->document()->lineCount() > 1);
    }
};

const Registered<TestTextBox> registered;

#include "text_box_test.moc"
