#include "intake/files/intake_question.h"

#include "../support/sample_catalogue.h"
#include "catalogue/remembered.h"

#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestIntakeQuestion : public OpenedSampleTest {
    Q_OBJECT

    QStringList paths_;

    using Hand = std::function<void(QMessageBox& box, QCheckBox* chkTg)>;

    /// Asks, and lets a hand work in the box.
    std::optional<bool> asked(const Hand& hand) { return asked(hand, SkipOffer{u"tc01"_s, ChosenFiles{paths_}}); }
    std::optional<bool> asked(const Hand& hand, const std::optional<SkipOffer>& offer) {
        QTimer::singleShot(0, this, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr && QTest::qWaitForWindowActive(box));
            hand(*box, box->findChild<QCheckBox*>(u"chkTg"_s));
            if (box->isVisible()) box->reject();
        });
        return askIntake(nullptr, u"将所选的图片追加本图册(tc01 旅行)吗？"_s, offer);
    }
    static void press(const QMessageBox& box, const QString& caption) {
        for (auto* button : box.buttons())
            if (button->text() == caption) QTest::mouseClick(button, Qt::LeftButton);
    }
    static void tick(QCheckBox* chkTg) { QTest::mouseClick(chkTg, Qt::LeftButton, {}, QPoint(8, chkTg->height() / 2)); }

  private Q_SLOTS:
    void init() {
        OpenedSampleTest::init();
        paths_.clear();
        for (int i = 0; i < 5; ++i) {
            const QByteArray picture = "picture " + QByteArray::number(i);
            paths_ << writeFile(sample_->file(u"%1.jpg"_s.arg(i)), picture);
            if (i < 3) addRow(u"tc01"_s, {{u"图片"_s, picture}});
        }
    }

    void captionGrowsWhenTheCountIsDone() {
        const auto answer = asked([](QMessageBox& box, QCheckBox* chkTg) {
            QVERIFY(chkTg != nullptr && chkTg->isVisible() && !chkTg->isChecked());
            QVERIFY(chkTg->text().startsWith(u"跳过已有的图片"_s));
            QTRY_COMPARE(chkTg->text(), u"跳过已有的图片（3 张）"_s);
            QVERIFY(chkTg->sizeHint().width() <= chkTg->width());
            QTest::keyClick(&box, Qt::Key_Return);
        });
        QVERIFY(answer == false);
    }

    void captionTellsWhatIsLeftOpen() {
        QFile file(paths_[4]);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(pictureBytes({60, 40}, Qt::blue, "PNG"));
        file.close();
        const auto waits = [](QMessageBox&, QCheckBox* chkTg) {
            QTRY_COMPARE(chkTg->text(), u"跳过已有的图片（3 张，另有 1 张要转成 JPG，录入时才比较）"_s);
            QVERIFY(chkTg->sizeHint().width() <= chkTg->width());
        };
        QVERIFY(!asked(waits, SkipOffer{u"tc01"_s, ChosenFiles{paths_, true}}));
    }

    void choiceIsRemembered() {
        QVERIFY(asked([](QMessageBox& box, QCheckBox* chkTg) {
                    tick(chkTg);
                    press(box, u"确定"_s);
                }) == true);
        mekTp::openCatalogue();
        // By the keys, and with the other answer.
        QVERIFY(asked([](QMessageBox& box, QCheckBox* chkTg) {
                    QVERIFY(chkTg->isChecked());
                    while (!chkTg->hasFocus()) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                    QTest::keyClick(chkTg, Qt::Key_Space);
                    QTest::keyClick(&box, Qt::Key_Escape);
                }) == std::nullopt);
        QVERIFY(asked([](QMessageBox& box, QCheckBox* chkTg) {
                    QVERIFY(!chkTg->isChecked());
                    press(box, u"确定"_s);
                }) == false);
    }

    void recordsAreOfferedUncounted() {
        remembered::setFlag(u"intake.skipKnown"_s, true);
        QVERIFY(asked(
                    [](QMessageBox& box, QCheckBox* chkTg) {
                        QVERIFY(chkTg != nullptr && chkTg->isChecked());
                        QCOMPARE(chkTg->text(), u"跳过已有的图片"_s);
                        press(box, u"确定"_s);
                    },
                    SkipOffer{u"tc01"_s, ChosenFiles{}}) == true);
    }

    void nothingIsOfferedWhereRecordsAreReplaced() {
        remembered::setFlag(u"intake.skipKnown"_s, true);
        for (const QString& caption : {u"确定"_s, u"取消"_s}) {
            const auto answer = asked(
                [&](QMessageBox& box, QCheckBox* chkTg) {
                    QVERIFY(chkTg == nullptr);
                    press(box, caption);
                },
                std::nullopt);
            QVERIFY(answer == (caption == u"确定" ? std::optional(false) : std::nullopt));
        }
    }
};

const Registered<TestIntakeQuestion> registered;

}  // namespace

#include "intake_question_test.moc"
