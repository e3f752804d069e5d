#include "platform/desktop/habits.h"

#include "desktop.h"
#include "platform/desktop/accessibility.h"
#include "platform/desktop/option_buttons.h"

#include <QtTest/qtestspontaneevent.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A window in which the habits of the program hold.
struct Form : QWidget {
    Form() {
        qApp->installEventFilter(&habits);
        qApp->installEventFilter(&access);
        resize(300, 300);
    }
    Habits habits;
    Accessibility access;
};

void turnWheel(QWidget* over, int delta = -120) {
    const QPointF at(5, 5);
    QWheelEvent turn(at, over->mapToGlobal(at), {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
    // Only events from outside are passed on to the parent of a control.
    QSpontaneKeyEvent::setSpontaneous(&turn);
    qApp->notify(over, &turn);
}

class TestHabits : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void enterPressesTheButtonWithTheFocus() {
        Form form;
        const std::array<QAbstractButton*, 4> buttons{new QPushButton(&form), new QToolButton(&form),
                                                      new QCheckBox(&form), new QRadioButton(&form)};
        QVERIFY(isShown(form));
        for (QAbstractButton* button : buttons) {
            QSignalSpy clicked(button, &QAbstractButton::clicked);
            QTest::keyClick(button, Qt::Key_Return);
            QTest::keyClick(button, Qt::Key_Enter, Qt::KeypadModifier);
            QCOMPARE(clicked.size(), 2);
            QTest::keyClick(button, Qt::Key_Return, Qt::ControlModifier);
            QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, true);
            QApplication::sendEvent(button, &again);  // the key is still held
            QCOMPARE(clicked.size(), 2);
        }
    }

    void dialogsKeepTheirDefaultButton() {
        Form form;
        QDialog dialog(&form);
        auto* check = new QCheckBox(&dialog);
        auto* fine = new QPushButton(&dialog);
        fine->setDefault(true);
        QVERIFY(isShown(dialog));
        QSignalSpy pressed(fine, &QPushButton::clicked);
        QTest::keyClick(check, Qt::Key_Return);
        QCOMPARE(pressed.size(), 1);
        QVERIFY(!check->isChecked());
    }

    void wheelNeverChangesAComboBox() {
        Form form;
        std::array<QComboBox*, 2> boxes{new QComboBox(&form), new QComboBox(&form)};
        boxes[1]->setEditable(true);
        QVERIFY(isShown(form));
        for (QComboBox* box : boxes) {
            for (int i = 0; i < 100; ++i) box->addItem(QString::number(i));
            for (const bool focused : {false, true}) {
                if (focused) box->setFocus();
                turnWheel(box);
                if (box->lineEdit() != nullptr) turnWheel(box->lineEdit());
                QCOMPARE(box->currentIndex(), 0);
            }
            box->showPopup();
            QScrollBar* bar = box->view()->verticalScrollBar();
            const int before = bar->value();
            turnWheel(box->view()->viewport());
            QVERIFY(bar->value() > before);
            box->hidePopup();
        }
    }

    void wheelOverAComboBoxScrollsWhatItStandsOn() {
        Form form;
        QScrollArea area(&form);
        auto* inner = new QWidget;
        inner->resize(100, 2000);
        auto* box = new QComboBox(inner);
        box->addItems({u"1"_s, u"2"_s});
        area.setWidget(inner);
        QVERIFY(isShown(form));
        turnWheel(box);
        QVERIFY(area.verticalScrollBar()->value() > 0);
    }

    // Two groups on one parent, and one in a frame on it.
    void optionsOfAGroup() {
        Form form;
        auto* frame = new QGroupBox(&form);
        std::vector<QRadioButton*> all;
        for (int i = 0; i < 6; ++i) {
            all.push_back(new QRadioButton(QString::number(i), i < 4 ? static_cast<QWidget*>(&form) : frame));
            all.back()->setGeometry(i % 2 * 60, i / 2 * 30, 50, 20);
        }
        for (int i = 0; i < 6; i += 2) groupOptions(std::span(all).subspan(size_t(i), 2));
        QVERIFY(isShown(form));
        const auto chosen = [&] {
            QString text;
            for (const QRadioButton* option : all)
                if (option->isChecked()) text += option->text();
            return text;
        };
        const auto click = [&](int i) { QTest::mouseClick(all.at(size_t(i)), Qt::LeftButton, {}, {8, 10}); };
        for (const auto& [clicked, now] :
             {std::pair{0, u"0"_s}, {3, u"03"_s}, {4, u"034"_s}, {1, u"134"_s}, {1, u"134"_s}}) {
            click(clicked);
            QCOMPARE(chosen(), now);
        }
        clearOption(all[1]);
        QCOMPARE(chosen(), u"34"_s);
        click(0);
        QCOMPARE(chosen(), u"034"_s);
        clearOptions(std::span(all).first(2));
        QCOMPARE(chosen(), u"34"_s);
        all[2]->setFocus();
        for (const int next : {3, 2}) {
            QTest::keyClick(form.focusWidget(), next == 3 ? Qt::Key_Right : Qt::Key_Left);
            QCOMPARE(form.focusWidget(), all.at(size_t(next)));
        }
        QCOMPARE(chosen(), u"24"_s);

        // Tab passes all of them, whichever was chosen or had the focus, and chooses none.
        for (int start = 0; start < 6; ++start) {
            QSet<QWidget*> met;
            for (int i = 0; i < 6; ++i) {
                QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
                met << form.focusWidget();
            }
            QCOMPARE(met.size(), 6);
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(chosen(), u"24"_s);
    }
};

const Registered<TestHabits> registered;

}  // namespace

#include "habits_test.moc"
