#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "program.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// One window after another, by the clicks of a person: what one window does has to reach the next.
class TestRoadOfAPicture : public QObject {
    Q_OBJECT

    std::unique_ptr<SampleCatalogue> catalogue_;
    std::unique_ptr<QTemporaryDir> photographs_;
    std::unique_ptr<Program> program_;
    QStringList said_;

    static QWidget* window(const QString& name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == name && widget->isVisible()) return widget;
        return nullptr;
    }

    template <typename Control>
    static Control* find(const QString& windowName, const QString& name) {
        QWidget* in = window(windowName);
        auto* control = in != nullptr ? in->findChild<Control*>(name) : nullptr;
        if (control == nullptr) qFatal("no control %s", qPrintable(windowName + u'.' + name));
        return control;
    }

    static void click(const QString& windowName, const QString& name) {
        QTest::mouseClick(find<QWidget>(windowName, name), Qt::LeftButton);
    }

    static void chooseLine(const QString& windowName, const QString& list, const QString& text) {
        auto* box = find<ListBox>(windowName, list);
        const auto lines = box->findItems(text, Qt::MatchExactly);
        QVERIFY2(lines.size() == 1, qPrintable(text));
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, box->visualItemRect(lines.first()).center());
    }

    static bool anyLabelSays(const QString& windowName, const QString& part) {
        for (const QLabel* label : window(windowName)->findChildren<QLabel*>())
            if (label->text().contains(part)) return true;
        return false;
    }

  private Q_SLOTS:
    void init() {
        said_.clear();
        answerBoxesWith([this](const BoxText& box) {
            said_ << box.text;
            return true;
        });
        catalogue_ = std::make_unique<SampleCatalogue>();
        photographs_ = std::make_unique<QTemporaryDir>();
        program_ = std::make_unique<Program>();
    }

    void cleanup() {
        answerBoxesWith({});
        program_.reset();
        catalogue_.reset();
    }

    void fromAFolderToAPage() {
        for (int i = 1; i <= 5; ++i)
            writePicture(photographs_->filePath(u"%1.jpg"_s.arg(i)), QSize(64, 48), QColor::fromHsv(60 * i, 255, 200));

        program_->start();
        QTRY_VERIFY(window(u"frmTp"_s));
        click(u"frmTp"_s, u"tlb1:bj"_s);
        QTRY_VERIFY(window(u"frmSz"_s) && !window(u"frmTp"_s));

        click(u"frmSz"_s, u"cmdJl"_s);
        find<TextBox>(u"frmSz"_s, u"txtBa"_s)->setText(u"tc07"_s);
        find<TextBox>(u"frmSz"_s, u"txtBb"_s)->setText(u"海边"_s);
        click(u"frmSz"_s, u"cmdJl"_s);
        QCOMPARE(said_, QStringList{u"新的像册数据表建立完成！"_s});

        find<TabControl>(u"frmSz"_s, u"sstFz"_s)->setCurrentIndex(1);
        auto* chooser = find<QComboBox>(u"frmSz"_s, u"cboBm"_s);
        chooser->setCurrentIndex(chooser->findText(u"tc07 海边"_s));
        Q_EMIT chooser->activated(chooser->currentIndex());
        click(u"frmSz"_s, u"optYl(0)"_s);
        click(u"frmSz"_s, u"optCz(1)"_s);
        find<DirList>(u"frmSz"_s, u"dir1"_s)->setPath(photographs_->path());
        click(u"frmSz"_s, u"cmdQx"_s);
        click(u"frmSz"_s, u"cmdLr"_s);
        QCOMPARE(said_.last(), u"图片录入完成！  共录入：5张"_s);
        QCOMPARE(find<QLabel>(u"frmSz"_s, u"lblJl"_s)->text(), u"表 [tc07 海边] 共有记录：5 条"_s);

        click(u"frmSz"_s, u"cmdFh"_s);
        QTRY_VERIFY(window(u"frmTp"_s) && !window(u"frmSz"_s));
        for (QAction* action : find<QMenu>(u"frmTp"_s, u"mnuDk"_s)->actions())
            if (action->text() == u"海边"_s) action->trigger();
        QVERIFY(anyLabelSays(u"frmTp"_s, u"海边(tc07) 共 5 张"_s));

        click(u"frmTp"_s, u"txtLs"_s);
        chooseLine(u"frmTp"_s, u"lstLs"_s, u"2列"_s);
        click(u"frmTp"_s, u"imgAn(0)"_s);
        QVERIFY(anyLabelSays(u"frmTp"_s, u"共5张 共2页"_s));
        for (int i = 0; i < 4; ++i) {
            auto* cell = find<ImageBox>(u"frmTp"_s, u"imgXs(%1)"_s.arg(i));
            QCOMPARE(cell->picture().pixels(), QSize(64, 48));
            const QColor seen = cell->grab().toImage().pixelColor(cell->width() / 2, cell->height() / 2);
            QVERIFY(qAbs(seen.hsvHue() - 60 * (i + 1) % 360) < 8);
        }
    }

    /// What the viewer remembers survives the other window.
    void returningOpensTheSameAlbum() {
        program_->start();
        QTRY_VERIFY(window(u"frmTp"_s));
        for (QAction* action : find<QMenu>(u"frmTp"_s, u"mnuDk"_s)->actions())
            if (action->text() == u"旅行"_s) action->trigger();
        click(u"frmTp"_s, u"tlb1:bj"_s);
        QTRY_VERIFY(window(u"frmSz"_s));
        click(u"frmSz"_s, u"cmdFh"_s);
        QTRY_VERIFY(window(u"frmTp"_s));
        QCOMPARE(mekTp::currentTable, u"tc01"_s);
        QVERIFY(anyLabelSays(u"frmTp"_s, u"旅行(tc01) 共 10 张"_s));
    }
};

const Registered<TestRoadOfAPicture> registered;

}  // namespace

#include "road_of_a_picture_test.moc"
