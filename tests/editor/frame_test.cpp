#include "editor_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList processing{u"sf"_s, u"cj"_s, u"xz"_s, u"fs"_s, u"fc"_s, u"at"_s};
const QStringList stepping{u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s};
const QStringList pictureMenus{u"mnuCl"_s, u"mnuAt"_s, u"mnuB0"_s, u"mnuCx"_s};

class TestEditorFrame : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void comesUpEmpty() {
        const EditorWindow editor;
        QCOMPARE(editor.caption(), u"览忆集苑（图片处理）"_s);
        QCOMPARE(twipsFromPixels(editor.window->width()), 9600);
        QCOMPARE(twipsFromPixels(editor.window->height()), 7200);
        QVERIFY(editor.shows(u"img1"_s));
        QVERIFY(!editor.find<ImageBox>(u"img1"_s)->picture().isNull());
        QCOMPARE(widthOf(editor.find(u"img1"_s)), 9450);
        QCOMPARE(editor.find(u"img1"_s)->height(), pixelsFromTwips(6140 - 330));
        for (const QString& name : {u"picCq"_s, u"picAn"_s, u"picCs"_s, u"txtTs"_s, u"shpBk"_s, u"hsc1"_s, u"vsc1"_s})
            QVERIFY2(!editor.shows(name), qPrintable(name));
        QCOMPARE(editor.hint(), u"操作提示：先打开要处理的图片，再进行其它操作。"_s);
        for (const QString& key : processing + stepping + QStringList{u"lc"_s, u"cx"_s})
            QVERIFY2(!editor.key(key)->isEnabled(), qPrintable(key));
        for (const QString& name : pictureMenus + QStringList{u"mnuQh"_s})
            QVERIFY2(!editor.menu(name)->isVisible(), qPrintable(name));
        QVERIFY(editor.boxes.isEmpty());
    }

    void menuTexts() {
        const EditorWindow editor;
        const std::pair<QString, QString> captions[] = {
            {u"mnuDk"_s, u"打开(&D)"_s}, {u"mnuCw"_s, u"从文件"_s},   {u"mnuCs"_s, u"从图册"_s},
            {u"mnuQh"_s, u"切换(&Q)"_s}, {u"mnuCl"_s, u"处理(&L)"_s}, {u"mnuSf"_s, u"缩 放"_s},
            {u"mnuCj"_s, u"裁 剪"_s},    {u"mnuXz"_s, u"旋 转"_s},    {u"mnuAt"_s, u"按钮图片(&A)"_s},
            {u"mnuB0"_s, u"保存(&B)"_s}, {u"mnuBc"_s, u"保  存"_s},   {u"mnuLc"_s, u"另存为"_s},
            {u"mnuCx"_s, u"撤消(&C)"_s}, {u"mnuGj"_s, u"工具(&G)"_s}, {u"mnuGb"_s, u"退出(&T)"_s},
        };
        for (const auto& [name, caption] : captions) QCOMPARE(editor.menu(name)->text(), caption);
        for (const QToolButton* button : editor.window->findChildren<QToolButton*>(QRegularExpression(u"^tlb1:"_s)))
            QVERIFY2(!button->icon().isNull() && !button->toolTip().isEmpty(), qPrintable(button->objectName()));
    }

    void aPictureBringsUpItsCommands() {
        OpenEditor editor;
        QCOMPARE(editor.caption(), sourceLine(PictureFile{editor.file, QFileInfo(editor.file).size(), {2117, 1588}}));
        for (const QString& name : pictureMenus) QVERIFY2(editor.menu(name)->isVisible(), qPrintable(name));
        QVERIFY(!editor.menu(u"mnuQh"_s)->isVisible());
        for (const QString& key : processing + QStringList{u"lc"_s, u"cx"_s})
            QVERIFY2(editor.key(key)->isEnabled(), qPrintable(key));
        for (const QString& key : stepping + QStringList{u"bc"_s})
            QVERIFY2(!editor.key(key)->isEnabled(), qPrintable(key));
        QVERIFY(!editor.menu(u"mnuBc"_s)->isEnabled());
        QVERIFY(editor.menu(u"mnuCl"_s)->menu() != nullptr);
        QVERIFY(!editor.shows(u"img1"_s) && editor.shows(u"shpBk"_s) && editor.shows(u"txtTs"_s));
        QCOMPARE(editor.hint(), hintFor(u"w1"_s));
        QCOMPARE(editor.size(), QSize(80, 60));
        QCOMPARE(editor.questions.last().title, u"打开图片文件  （选中后按“打开”，放弃选择按“取消”）"_s);
        QCOMPARE(editor.questions.last().filter, u"BMP文件|*.bmp|JPG文件|*.jpg|所有文件|*.*"_s);
        QCOMPARE(editor.questions.last().filterIndex, 2);
    }

    // Once a picture was loaded and taken back, the menus stay and say what to do.
    void withoutAPictureMenusReport() {
        OpenEditor editor;
        editor.undo();
        for (const QString& name : {u"mnuCl"_s, u"mnuB0"_s}) {
            editor.boxes.clear();
            QTest::mouseClick(editor.window->menuBar(), Qt::LeftButton, {},
                              editor.window->menuBar()->actionGeometry(editor.menu(name)).center());
            QCOMPARE(editor.lastBox(), u"操作提示|请先打开图片！"_s);
            QCOMPARE(editor.boxes.last().icon, BoxIcon::information);
            QVERIFY(QApplication::activePopupWidget() == nullptr);
        }
        editor.trigger(u"mnuAt"_s);
        QCOMPARE(editor.lastBox(), u"操作提示|请先选择要做按钮的图片！"_s);
        const auto boxes = editor.boxes.size();
        editor.press(u"bc"_s);
        QVERIFY(editor.boxes.size() == boxes || editor.lastBox() == u"操作提示|请先打开图片！"_s);
    }

    void toolBarIsKept() {
        EditorWindow editor;
        const auto* tlb1 = editor.find<ToolBar>(u"tlb1"_s);
        QCOMPARE(editor.menu(u"mnuGx"_s)->text(), u"隐藏工具条"_s);
        QCOMPARE(tlb1->image(u"gj"_s), u"gg"_s);
        editor.press(u"gj"_s);
        QVERIFY(!tlb1->isVisible());
        QCOMPARE(editor.menu(u"mnuGx"_s)->text(), u"显示工具条"_s);
        QCOMPARE(editor.key(u"gj"_s)->toolTip(), u"显示工具条"_s);
        QCOMPARE(tlb1->image(u"gj"_s), u"gj"_s);
        QVERIFY(!EditorWindow::setting(u"处理工具条"_s));
        QCOMPARE(topOf(editor.find(u"picGd"_s)), 30);
        editor.trigger(u"mnuGx"_s);
        QVERIFY(tlb1->isVisible());
        QVERIFY(EditorWindow::setting(u"处理工具条"_s));
        QCOMPARE(topOf(editor.find(u"picGd"_s)), 360);
        QCOMPARE(widthOf(tlb1), 9600 - 90);
    }

    void hintBoxFollowsItsSetting() {
        EditorWindow editor;
        const auto* tlb1 = editor.find<ToolBar>(u"tlb1"_s);
        QCOMPARE(tlb1->image(u"ts"_s), u"tg"_s);
        editor.press(u"ts"_s);
        QCOMPARE(editor.menu(u"mnuTg"_s)->text(), u"打开提示"_s);
        QCOMPARE(tlb1->image(u"ts"_s), u"ts"_s);
        QCOMPARE(editor.key(u"ts"_s)->toolTip(), u"打开提示"_s);
        QVERIFY(!EditorWindow::setting(u"处理提示"_s));
        editor.open();
        QVERIFY(!editor.shows(u"txtTs"_s));
        QTest::mouseDClick(&editor.picYu(), Qt::LeftButton);
        QVERIFY(editor.shows(u"txtTs"_s));
        editor.click(u"txtTs"_s);
        QVERIFY(!editor.shows(u"txtTs"_s));
        editor.trigger(u"mnuTg"_s);
        QVERIFY(editor.shows(u"txtTs"_s));
        QCOMPARE(widthOf(editor.find(u"txtTs"_s)), hintWidth(editor.hint()));
        QVERIFY(EditorWindow::setting(u"处理提示"_s));
    }

    void largePictureScrolls() {
        const OpenEditor editor({1000, 900});
        auto* hsc1 = editor.find<QScrollBar>(u"hsc1"_s);
        auto* vsc1 = editor.find<QScrollBar>(u"vsc1"_s);
        QVERIFY(hsc1->isVisible() && vsc1->isVisible());
        const QSize port = editor.find(u"picGd"_s)->size();
        QCOMPARE(pixelsFromTwips(hsc1->maximum()), 1000 - port.width());
        hsc1->setValue(hsc1->maximum());
        vsc1->setValue(vsc1->maximum());
        QVERIFY((editor.picYu().geometry().bottomRight() - QPoint(port.width(), port.height())).manhattanLength() <= 3);
        editor.press(u"fs"_s);
        QCOMPARE(editor.picYu().pos(), QPoint(0, 0));
        QCOMPARE(hsc1->value(), 0);
        auto* picGd = editor.find(u"picGd"_s);
        QWheelEvent wheel({5, 5}, picGd->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(picGd, &wheel);
        QVERIFY(editor.picYu().y() < 0);
    }

    void aSmallerWindowKeepsItsScrollBars() {
        const OpenEditor editor({500, 400});
        auto* hsc1 = editor.find<QScrollBar>(u"hsc1"_s);
        auto* vsc1 = editor.find<QScrollBar>(u"vsc1"_s);
        const QSize fitting = editor.window->size();
        QVERIFY(!hsc1->isVisible() && !vsc1->isVisible());
        editor.window->resize(400, 300);
        const auto* form = editor.window->centralWidget();
        const auto* picGd = editor.find(u"picGd"_s);
        for (QScrollBar* bar : {hsc1, vsc1}) {
            QVERIFY(bar->isVisible());
            QVERIFY(form->rect().contains(bar->geometry()));
            QVERIFY(!picGd->geometry().intersects(bar->geometry()));
            bar->setValue(bar->maximum());
        }
        QVERIFY((editor.picYu().geometry().bottomRight() - QPoint(picGd->width(), picGd->height())).manhattanLength() <=
                3);
        const auto* hint = editor.find(u"txtTs"_s);
        QVERIFY(hint->isVisible() && form->rect().contains(hint->geometry()));
        QVERIFY(hint->fontMetrics().horizontalAdvance(editor.hint()) <= hint->width());
        const QPoint scrolled = editor.picYu().pos();
        editor.window->resize(401, 301);
        QVERIFY((editor.picYu().pos() - scrolled).manhattanLength() <= 4);
        editor.window->resize(250, 301);
        QVERIFY(form->rect().contains(hint->geometry()));
        QCOMPARE(hint->toolTip(), editor.hint());
        editor.window->resize(fitting);
        QVERIFY(!hsc1->isVisible() && !vsc1->isVisible());
        QCOMPARE(picGd->size(), QSize(500, 400));
        QCOMPARE(editor.picYu().pos(), QPoint(0, 0));
        QCOMPARE(widthOf(hint), hintWidth(editor.hint()));
        QVERIFY(hint->toolTip().isEmpty());
    }

    void theChooserKeepsItsWindow() {
        const OpenEditor editor({2400, 1800});
        editor.press(u"sk"_s);
        const QSize size = editor.window->size();
        for (const bool shown : {false, true}) {
            editor.trigger(u"mnuGx"_s);
            QCOMPARE(editor.window->size(), size);
            QVERIFY(!editor.shows(u"hsc1"_s) && !editor.shows(u"picGd"_s));
            QCOMPARE(editor.shows(u"tlb1"_s), shown);
            QCOMPARE(topOf(editor.find(u"picCs"_s)), shown ? 330 : 195);  // 200 in whole pixels
            // The hint goes up with it, and leaves the album list free.
            const auto onScreen = [&editor](const QString& name, QPoint at) {
                return editor.find(name)->mapToGlobal(at);
            };
            QVERIFY(onScreen(u"txtTs"_s, {0, 9}).y() < onScreen(u"cboBm"_s, {0, 0}).y());
        }
        editor.click(u"cmdQx"_s);
        QVERIFY(editor.shows(u"img1"_s) && !editor.shows(u"vsc1"_s));
    }

    void shortWindowGrows() {
        EditorWindow editor;
        editor.window->resize(640, 300);
        Q_EMIT editor.menu(u"mnuDk"_s)->menu()->aboutToShow();
        QCOMPARE(twipsFromPixels(editor.window->height()), 7200);
        QCOMPARE(heightOf(editor.find(u"shpBj"_s)), 6525);
    }

    void dialogIsDraggedToThePointer() {
        OpenEditor editor;
        editor.press(u"sf"_s);
        auto* picCq = editor.find(u"picCq"_s);
        const auto* picGd = editor.find(u"picGd"_s);
        QTest::mousePress(picCq, Qt::LeftButton, {}, {100, 60});
        const QPoint target = picGd->mapToGlobal(QPoint(30, 20));
        QMouseEvent move(QEvent::MouseMove, picCq->mapFromGlobal(target), target, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(picCq, &move);
        QCOMPARE(picCq->pos(), QPoint(30, 20));
    }

    void otherWindows() {
        EditorWindow editor;
        editor.press(u"bz"_s);
        QCOMPARE(editor.windows.topics, QStringList{u"5使用帮助"_s});
        editor.press(u"fh"_s);
        QCOMPARE(editor.windows.handedTo, QList{WindowKind::viewer});
        editor.trigger(u"mnuGb"_s);
        QVERIFY(editor.windows.ended);
    }

    void opensWithoutACatalogue() {
        EditorWindow editor;
        mekTp::catalogue = {};
        editor.window = std::make_unique<frmCl>(editor.windows);
        QVERIFY(editor.menu(u"mnuGx"_s)->text() == u"隐藏工具条"_s);
    }
};

const Registered<TestEditorFrame> registered;

}  // namespace

#include "frame_test.moc"
