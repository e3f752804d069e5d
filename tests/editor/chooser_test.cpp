#include "chooser_window.h"

using namespace Qt::Literals::StringLiterals;

class TestChooser : public QObject {
    Q_OBJECT

    std::optional<Chooser> editor_;

  private Q_SLOTS:
    void init() { editor_.emplace(); }

    void opensEmpty() {
        QVERIFY(editor_->shows(u"picCs"_s) && !editor_->shows(u"picGd"_s));
        const auto* list = editor_->find<QComboBox>(u"cboBm"_s);
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->itemText(0), u"tc01 旅行"_s);
        QVERIFY(!editor_->find<Grid>(u"msgBm"_s)->isEnabled());
        QVERIFY(!editor_->find<QPushButton>(u"cmdQd"_s)->isEnabled());
        QCOMPARE(editor_->label(u"lbl1"_s), u"请先选择图册"_s);
        QCOMPARE(editor_->label(u"lblCl"_s), u"图片处理（尚未选择图片）"_s);
        QVERIFY(editor_->hint().startsWith(u"先选择图册，再在右边筛选"));
    }

    void listsAnAlbumAndItsButtons() {
        editor_->chooseAlbum(u"tc01 旅行"_s);
        QCOMPARE(editor_->rows(), 10);
        QCOMPARE(editor_->label(u"lbl1"_s), u"按编号筛选"_s);
        QCOMPARE(editor_->find<QPushButton>(u"cmdBh(0)"_s)->text(), u"v"_s);
        QVERIFY(editor_->shows(u"cmdBh(3)"_s));
        QCOMPARE(editor_->box(u"txtB0"_s).text(), u"v：全部"_s);
        QCOMPARE(editor_->label(u"lblCl"_s), u"表名：旅行 序号：1  编号：12 图片规格：40 * 30"_s);
        QVERIFY(editor_->find<QPushButton>(u"cmdQd"_s)->isEnabled());

        editor_->click(u"cmdBh(1)"_s);
        QCOMPARE(editor_->rows(), 5);
        QCOMPARE(editor_->label(u"lblJ1"_s), u"编号=[1](风景) 共有5张"_s);
        editor_->click(u"cmdBh(0)"_s);
        QCOMPARE(editor_->source(), u"SELECT * FROM tc01"_s);
        QCOMPARE(editor_->label(u"lblJ1"_s), u"编号=[v](全部) 共有10张"_s);
        editor_->clickRow(3);
        QCOMPARE(editor_->label(u"lblCl"_s), u"表名：旅行 序号：4  编号：2 图片规格：100 * 50"_s);
    }

    void manyButtons() {
        for (const int count : {15, 56, 80}) {
            init();
            for (int i = 5; i <= count; ++i)
                addRow(u"tcan"_s, {{u"序号"_s, i}, {u"编号"_s, QString(QChar(0x4e00 + i))}, {u"图册"_s, u"tc01"_s}});
            editor_->chooseAlbum(u"tc01 旅行"_s);
            const auto* panel = editor_->find(u"picCs"_s);
            const auto* preview = editor_->find(u"imgCl"_s);
            for (int i = 0; i < count; ++i) {
                const auto* button = editor_->find(u"cmdBh(%1)"_s.arg(i));
                QVERIFY(button != nullptr && button->isVisible());
                QVERIFY(panel->rect().contains(button->geometry()));
                QVERIFY(!button->geometry().intersects(preview->geometry()));
            }
            const QPoint step = editor_->find(u"cmdBh(1)"_s)->pos() - editor_->find(u"cmdBh(0)"_s)->pos();
            if (count <= 56) QVERIFY(step.x() == 18 || step.x() == 19);
            QCOMPARE(step.y(), 0);
        }
    }

    void albumWithoutButtons() {
        mekTp::catalogue.Execute(u"DELETE FROM tcan"_s);
        editor_->chooseAlbum(u"tc01 旅行"_s);
        QVERIFY(editor_->shows(u"img0"_s) && !editor_->shows(u"txtB0"_s));
    }

    void takesAPicture() {
        editor_->openRow(3);
        QVERIFY(!editor_->shows(u"picCs"_s));
        QCOMPARE(editor_->picYu().picture().size(), QSize(100, 50));
        QCOMPARE(editor_->caption(),
                 u"[从图册读出] 图册名：tc01 序号：4 编号：2 大小："_s + column(4, u"大小"_s) + u" 规格：100 * 50"_s);
        QVERIFY(editor_->menu(u"mnuQh"_s)->isVisible());
        for (const QString& key : {u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s}) QVERIFY(editor_->key(key)->isEnabled());
    }

    // Nothing is open then, and everything says so.
    void cancelEmptiesTheEditor() {
        for (const bool byKey : {false, true}) {
            init();
            editor_->openRow(3);
            editor_->press(u"sk"_s);
            QCOMPARE(editor_->steps(), QStringList());
            QVERIFY(!editor_->menu(u"mnuQh"_s)->isVisible());
            for (const QString& key : {u"sf"_s, u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s})
                QVERIFY2(!editor_->key(key)->isEnabled(), qPrintable(key));
            if (byKey)
                QTest::keyClick(editor_->find(u"msgBm"_s), Qt::Key_Escape);
            else
                editor_->click(u"cmdQx"_s);
            QVERIFY(editor_->shows(u"img1"_s) && editor_->shows(u"picGd"_s) && !editor_->shows(u"picCs"_s));
            for (const QString& key : {u"lc"_s, u"bc"_s, u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s})
                QVERIFY2(!editor_->key(key)->isEnabled(), qPrintable(key));
            QCOMPARE(editor_->caption(), u"览忆集苑（图片处理）"_s);
            QVERIFY(!editor_->menu(u"mnuQh"_s)->isVisible());
        }
    }

    // The record that is marked is the one that opens, by keys as well.
    void theMarkedRecordIsTaken() {
        const auto number = [this] { return editor_->caption().section(u"序号："_s, 1).section(u' ', 0, 0).toInt(); };
        const std::tuple<QList<Qt::Key>, int> byKeys[] = {{{Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, 3},
                                                          {{Qt::Key_End, Qt::Key_Up, Qt::Key_Enter}, 9},
                                                          {{Qt::Key_Return}, 1}};
        for (const auto& [keys, expected] : byKeys) {
            init();
            editor_->chooseAlbum(u"tc01 旅行"_s);
            auto* grid = editor_->find<Grid>(u"msgBm"_s);
            for (const Qt::Key key : keys) {
                QCOMPARE(editor_->label(u"lblCl"_s).section(u"序号："_s, 1).section(u' ', 0, 0).toInt(),
                         grid->currentIndex().row() + 1);
                QTest::keyClick(grid, key);
            }
            QVERIFY(!editor_->shows(u"picCs"_s));
            QCOMPARE(number(), expected);
            editor_->press(u"xy"_s);
            QCOMPARE(number(), expected + 1);
        }

        init();
        editor_->chooseAlbum(u"tc01 旅行"_s);
        auto* grid = editor_->find<Grid>(u"msgBm"_s);
        QTest::keyClick(grid, Qt::Key_Down);
        editor_->click(u"cmdQd"_s);
        QCOMPARE(number(), 2);
        editor_->press(u"sk"_s);
        const QPoint fifth = grid->visualRect(grid->model()->index(4, 1)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, fifth);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, fifth);
        QVERIFY(!editor_->shows(u"picCs"_s));
        QCOMPARE(number(), 5);
    }

    void whyThereIsNothingToSee() {
        const auto says = [this](const QString& words) {
            QVERIFY(editor_->shows(u"lblSm"_s));
            QVERIFY2(editor_->label(u"lblSm"_s).contains(words), qPrintable(editor_->label(u"lblSm"_s)));
            QVERIFY(editor_->find<ImageBox>(u"imgCl"_s)->picture().isNull());
            QCOMPARE(editor_->label(u"lblCl"_s), u"图片处理（尚未选择图片）"_s);
            QVERIFY(!editor_->find(u"cmdQd"_s)->isEnabled());
        };
        editor_->chooseAlbum(u"tc01 旅行"_s);
        QVERIFY(!editor_->shows(u"lblSm"_s));
        editor_->chooseAlbum(u"tc02 空册"_s);
        says(u"图册“空册”里还没有图片"_s);
        editor_->chooseAlbum(u"tc01 旅行"_s);
        changeRow(u"SELECT * FROM tcan WHERE 序号 = 2"_s, {{u"编号"_s, u"q"_s}});
        editor_->chooseAlbum(u"tc01 旅行"_s);
        editor_->click(u"cmdBh(1)"_s);
        says(u"没有带这个编号的图片"_s);
        mekTp::catalogue.Execute(u"DROP TABLE tc02"_s);
        editor_->chooseAlbum(u"tc02 空册"_s);
        says(u"不能打开"_s);
    }

    void withoutAnAlbumOfOnesOwn() {
        mekTp::catalogue.Execute(u"DELETE FROM tcbm"_s);
        editor_->window = std::make_unique<frmCl>(editor_->windows);
        editor_->window->show();
        editor_->press(u"sk"_s);
        QVERIFY(editor_->shows(u"lblSm"_s) && editor_->label(u"lblSm"_s).contains(u"建立新图册"));
    }

    void aRecordWithoutPictureIsNotToldAsAnother() {
        changeRow(record(2), {{u"图片"_s, {}}});
        changeRow(record(3), {{u"图片"_s, QByteArray("no picture")}});
        editor_->chooseAlbum(u"tc01 旅行"_s);
        const auto* preview = editor_->find<ImageBox>(u"imgCl"_s);
        const QSize first = preview->picture().pixels();
        editor_->clickRow(1);
        QCOMPARE(preview->picture().pixels(), first);
        QVERIFY(editor_->label(u"lblCl"_s).endsWith(u"没有图片"));
        editor_->clickRow(2);
        QVERIFY(preview->picture().isNull() && editor_->shows(u"lblSm"_s));
        editor_->clickRow(3);
        QVERIFY(!preview->picture().isNull() && !editor_->shows(u"lblSm"_s));
    }

    // A long title gives way, the figures do not.
    void theLineUnderThePreview() {
        auto* list = editor_->find<QComboBox>(u"cboBm"_s);
        list->setItemText(0, u"tc01 一二三四五六七八"_s);
        changeRow(record(1), {{u"序号"_s, 10001}, {u"编号"_s, u"abcdefghij"_s}});
        editor_->chooseAlbum(u"tc01 一二三四五六七八"_s);
        for (int row = 0; !editor_->label(u"lblCl"_s).contains(u"10001"); ++row) editor_->clickRow(row);
        const auto* label = editor_->find<QLabel>(u"lblCl"_s);
        QVERIFY(label->fontMetrics().horizontalAdvance(label->text()) <= label->width());
        QVERIFY2(label->text().endsWith(u" 图片规格：40 * 30"), qPrintable(label->text()));
        QVERIFY(label->text().contains(u"…"));
        QVERIFY(label->toolTip().contains(u"一二三四五六七八"));
    }

    void theNameOfAButtonIsWhole() {
        const QString name = u"我"_s.repeated(20);
        changeRow(u"SELECT * FROM tcan WHERE 序号 = 2"_s, {{u"名称"_s, name}});
        editor_->chooseAlbum(u"tc01 旅行"_s);
        const auto& box = editor_->box(u"txtB0"_s);
        const QRect usual = box.geometry();
        const auto pointAt = [this](const QString& button) {
            QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
            QApplication::sendEvent(editor_->find(button), &enter);
        };
        pointAt(u"cmdBh(1)"_s);
        QVERIFY(box.text().endsWith(name));
        QVERIFY(box.fontMetrics().horizontalAdvance(box.text()) + 8 <= box.width());
        QVERIFY(editor_->find(u"picCs"_s)->rect().contains(box.geometry()));
        pointAt(u"cmdBh(0)"_s);
        QCOMPARE(box.geometry(), usual);
    }

    void recordWithoutPicture() {
        changeRow(record(2), {{u"图片"_s, {}}});
        editor_->openRow(0);
        editor_->press(u"xy"_s);
        QVERIFY(editor_->lastBox().contains(u"这条记录没有可以显示的图片"));
        QVERIFY(editor_->caption().contains(u"序号：1 "));
        // What is saved now belongs to the picture on the screen.
        editor_->scale(u"0.5"_s);
        editor_->press(u"bc"_s);
        QCOMPARE(column(1, u"规格"_s), u"20 * 15"_s);
        QVERIFY(column(2, u"规格"_s).startsWith(u"40"));
    }

    void damagedAndVanished() {
        changeRow(record(1), {{u"图片"_s, QByteArray("no picture")}});
        editor_->openRow(0);
        QVERIFY(editor_->shows(u"picCs"_s));
        QVERIFY(editor_->lastBox().contains(u"没有可以显示的图片"));
        mekTp::catalogue.Execute(u"DELETE FROM tc01"_s);
        editor_->clickRow(2);
        editor_->click(u"cmdQd"_s);
        QVERIFY(editor_->shows(u"picCs"_s));
        editor_->click(u"cmdQx"_s);
        QVERIFY(editor_->shows(u"img1"_s));
    }
};

const Registered<TestChooser> registered;

#include "chooser_test.moc"
