#include "../support/run_all.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/image_box.h"
#include "settings/button_rules.h"
#include "settings_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList boxNames{u"txtX1"_s, u"txtB1"_s, u"txtM1"_s, u"txtC1"_s};

/// The page 图册设置 with what its tests say and do.
class ButtonPage : public SettingsWindow {
  public:
    ButtonPage() {
        answerFileDialogsWith([this](const FileQuestion&) { return picture; });
    }
    ~ButtonPage() { answerFileDialogsWith({}); }

    Grid& grid() const { return get<Grid>(u"msgBm"_s); }

    /// Clicks the row of a code in the grid.
    void choose(const QString& code) const {
        for (int row = 0; row < grid().model()->rowCount(); ++row) {
            if (grid().cellText(row, 1) != code) continue;
            const QRect cell = grid().visualRect(grid().model()->index(row, 1));
            QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell.center());
            return;
        }
        QFAIL(qPrintable(u"no row "_s + code));
    }

    QString chosenRow() const { return grid().cellText(grid().currentIndex().row(), 1); }

    QStringList texts() const {
        QStringList all;
        for (const QString& name : boxNames) all << text(name);
        return all;
    }
    void fill(const QStringList& texts) const {
        for (int i = 0; i < texts.size(); ++i) box(boxNames.at(i)).setText(texts.at(i));
    }

    /// Captions, enabled states and locks, as one text.
    QString state() const {
        QStringList parts;
        for (const QString& name : {u"cmdQu"_s, u"cmdBj"_s, u"cmdSn"_s})
            parts << button(name).text().remove(u' ') + (button(name).isEnabled() ? u""_s : u"(-)"_s);
        for (const QString& name : boxNames) {
            if (box(name).isLocked() != box(boxNames.first()).isLocked()) parts << name;
        }
        parts << (box(boxNames.first()).isLocked() ? u"locked"_s : u"open"_s);
        return parts.join(u' ');
    }

    /// Whether leaving the page would warn.
    bool isPending() {
        answer = false;
        const auto before = boxes.size();
        Q_EMIT tabs().mouseMovedAt(1500, 100);
        answer = true;
        const bool warned = boxes.size() > before;
        if (warned) boxes.removeLast();
        return warned;
    }

    bool panelIsOpen() const { return get<QGroupBox>(u"fraCk"_s).isVisible(); }

    /// Loads a picture in the panel.
    void load(const QString& name, QSize pixels) {
        picture = catalogue.file(name);
        writePicture(picture, pixels, Qt::magenta, name.endsWith(u"bmp"_s) ? "BMP" : "JPG");
        click(u"cmdCk(4)"_s);
        click(u"cmdAz"_s);
    }

    QString picture;  ///< What file dialogs answer.
};

QString rowOf(const QString& code) {
    return u"SELECT * FROM tcan WHERE 编号 = "_s + quoted(code);
}

QStringList storedTexts(const QString& code) {
    QStringList texts;
    for (const QString& column : {u"序号"_s, u"编号"_s, u"名称"_s, u"图册"_s}) texts << valueOf(rowOf(code), column);
    return texts;
}

qint64 pictureLength(const QString& code) {
    const Recordset row = mekTp::catalogue.OpenRecordset(rowOf(code));
    return row.Fields(u"图片"_s).isNull() ? 0 : row.Fields(u"图片"_s).FieldSize();
}

int buttonCount() {
    return mekTp::catalogue.OpenRecordset(u"tcan"_s).rowCount();
}

const QString pictureQuestion = u"按钮图片没录入，如果以后另行录入，请按“确定”；\n\n如果现在录入，请按“取消”。"_s;
const QString storeQuestion = u"如果选择本图片作为按钮图片，\n\n请按“确定”；否则按“取消”。"_s;

class TestButtonSetup : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void presetCodes() {
        for (const QString& code : {u"1"_s, u"6"_s}) QVERIFY(isPreset(code));
        for (const QString& code : {u""_s, u"0"_s, u"7"_s, u"v"_s, u"１"_s}) QVERIFY(!isPreset(code));
    }

    // Choosing a row --------------------------------------------------------------------------------------------------

    void choosing_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("state");
        QTest::newRow("preset") << u"2"_s << u"添加 修改(-) 删除(-) locked"_s;
        QTest::newRow("all pictures") << u"v"_s << u"添加 修改 删除 locked"_s;
        QTest::newRow("own") << u"a"_s << u"添加 修改 删除 locked"_s;
    }
    void choosing() {
        QFETCH(QString, code);
        ButtonPage page;
        QCOMPARE(page.state(), u"添加 修改(-) 删除(-) locked"_s);
        QVERIFY(!page.button(u"cmdCk(4)"_s).isEnabled());
        page.choose(code);
        QTEST(page.state(), "state");
        QCOMPARE(page.texts(), storedTexts(code));
        QVERIFY(page.button(u"cmdCk(4)"_s).isEnabled());

        // In the other order the same button stays in hand.
        for (const QString& option : {u"optAp(0)"_s, u"optAp(1)"_s}) {
            page.get<QRadioButton>(option).click();
            QCOMPARE(page.chosenRow(), code);
            QTEST(page.state(), "state");
        }
    }

    void orderOfTheGrid() {
        ButtonPage page;
        const auto codes = [&] {
            QString all;
            for (int row = 0; row < page.grid().model()->rowCount(); ++row) all += page.grid().cellText(row, 1);
            return all;
        };
        QCOMPARE(codes(), u"12av"_s);
        page.get<QRadioButton>(u"optAp(0)"_s).click();
        QCOMPARE(codes(), u"v12a"_s);
    }

    // Adding ----------------------------------------------------------------------------------------------------------

    void addingProposesTheNextNumber_data() {
        QTest::addColumn<QString>("deleted");
        QTest::addColumn<QString>("number");
        QTest::newRow("behind the last") << u"编号 = '1'"_s << u"5"_s;
        QTest::newRow("empty table") << u"序号 > 0"_s << u"1"_s;
    }
    void addingProposesTheNextNumber() {
        QFETCH(QString, deleted);
        QFETCH(QString, number);
        ButtonPage page;
        mekTp::catalogue.Execute(u"DELETE FROM [tcan] WHERE "_s + deleted);
        page.click(u"cmdQu"_s);
        QCOMPARE(page.texts(), (QStringList{number, u""_s, u""_s, u""_s}));
        QCOMPARE(page.state(), u"保存 修改(-) 取消 open"_s);
        QVERIFY(page.box(u"txtB1"_s).hasFocus() && page.isPending());
        QVERIFY(page.button(u"cmdCk(4)"_s).isEnabled());
        QCOMPARE(page.label(u"lblTs"_s), u"操作提示：按钮图片可在“图片处理”中制作"_s);
        page.click(u"cmdSn"_s);
        QVERIFY(page.button(u"cmdQu"_s).text() == u"添 加"_s && !page.isPending());
    }

    void addingWithoutAPicture() {
        ButtonPage page;
        page.click(u"cmdQu"_s);
        page.fill({u"5"_s, u"花"_s, u"它's \"花\""_s, u"tc01tc02"_s});
        page.answer = false;
        page.click(u"cmdQu"_s);
        QCOMPARE(page.said(), QStringList{pictureQuestion});
        QCOMPARE(buttonCount(), 4);
        QCOMPARE(page.state(), u"保存 修改(-) 取消 open"_s);

        page.answer = true;
        page.click(u"cmdQu"_s);
        QCOMPARE(page.said(), QStringList{pictureQuestion});
        QCOMPARE(storedTexts(u"花"_s), (QStringList{u"5"_s, u"花"_s, u"它's \"花\""_s, u"tc01tc02"_s}));
        QCOMPARE(pictureLength(u"花"_s), 0);
        QCOMPARE(page.state(), u"添加 修改 删除(-) locked"_s);
        QVERIFY(!page.isPending());
        QCOMPARE(page.chosenRow(), u"花"_s);
        QCOMPARE(page.texts(), storedTexts(u"花"_s));
    }

    void emptyBoxesAreNamedInOrder() {
        ButtonPage page;
        page.click(u"cmdQu"_s);
        const QStringList words{u"序号"_s, u"编号"_s, u"名称"_s, u"相关图册"_s};
        const QStringList texts{u"9"_s, u"z"_s, u"名"_s, u"tc01"_s};
        page.fill({u""_s, u""_s, u" "_s, u""_s});
        for (int i = 0; i < 4; ++i) {
            page.click(u"cmdQu"_s);
            QCOMPARE(page.said(), QStringList{u"数据没填全，请重新进行！\n\n没填写的项目：("_s + words.at(i) + u')'});
            QVERIFY(page.box(boxNames.at(i)).hasFocus());
            page.box(boxNames.at(i)).setText(texts.at(i));
        }
        QCOMPARE(buttonCount(), 4);
        page.click(u"cmdQu"_s);
        QCOMPARE(storedTexts(u"z"_s), texts);
    }

    void addingNeedsAnAlbum() {
        ButtonPage page;
        mekTp::catalogue.Execute(u"DELETE FROM [tcbm]"_s);
        page.click(u"cmdQu"_s);
        QCOMPARE(page.boxes.value(0).text, u"请先建立图册。"_s);
        QVERIFY(page.boxes.value(0).icon == BoxIcon::question && !page.boxes.value(0).hasCancel);
        QCOMPARE(page.state(), u"添加 修改(-) 删除(-) locked"_s);
    }

    void codesAreUnique() {
        ButtonPage page;
        page.click(u"cmdQu"_s);
        auto& txtB1 = page.box(u"txtB1"_s);
        QTest::keyClick(&txtB1, Qt::Key_V);
        QCOMPARE(page.said(), QStringList{u"编号不能重复，重来！（已有：全部＝v）"_s});
        QCOMPARE(txtB1.text(), QString());
        QVERIFY(txtB1.hasFocus());
        QTest::keyClick(&txtB1, Qt::Key_B);
        QCOMPARE(txtB1.text(), u"b"_s);
        page.click(u"cmdSn"_s);

        page.choose(u"a"_s);
        page.click(u"cmdBj"_s);
        txtB1.setText(u"2"_s);
        QCOMPARE(page.said(), QStringList{u"编号不能重复，重来！（已有：人物＝2）"_s});
        QCOMPARE(txtB1.text(), u"a"_s);
        for (const QString& code : {u""_s, u"a"_s, u"A"_s, u"'"_s, u"x"_s}) txtB1.setText(code);
        QVERIFY(page.boxes.isEmpty());
    }

    void numbersAreUnique_data() {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("message");
        QTest::newRow("of another button") << u"2"_s << u"序号不能重复，重来！（已有：风景＝2）"_s;
        QTest::newRow("not a number") << u"a"_s << u"序号应为整数，重来！"_s;
        QTest::newRow("too large") << u"99999999999"_s << u"序号应为整数，重来！"_s;
    }
    void numbersAreUnique() {
        QFETCH(QString, number);
        QFETCH(QString, message);
        ButtonPage page;
        page.choose(u"a"_s);
        page.click(u"cmdBj"_s);
        page.fill({number, u"b"_s, u"新名"_s});
        page.click(u"cmdBj"_s);
        QCOMPARE(page.said(), QStringList{message});
        QCOMPARE(storedTexts(u"1"_s).at(2), u"风景"_s);
        QCOMPARE(storedTexts(u"a"_s).at(2), u"无图"_s);
        QCOMPARE(page.state(), u"添加(-) 确定 取消 open"_s);

        // A free number is one that the button can move to.
        page.box(u"txtX1"_s).setText(u"40"_s);
        page.click(u"cmdBj"_s);
        QCOMPARE(storedTexts(u"b"_s).first(), u"40"_s);
        QCOMPARE(buttonCount(), 4);
        QCOMPARE(page.chosenRow(), u"b"_s);
    }

    void failedStoringCanBeRepeated() {
        ButtonPage page;
        page.click(u"cmdQu"_s);
        page.fill({u"5"_s, u"k"_s, QString(21, u'长'), u"tc01"_s});  // the name is too long for its column
        for (int i = 0; i < 2; ++i) {
            page.click(u"cmdQu"_s);
            QCOMPARE(page.boxes.last().title, u"错误提示"_s);
            QCOMPARE(page.state(), u"保存 修改(-) 取消 open"_s);
            QCOMPARE(buttonCount(), 4);
        }
        page.box(u"txtM1"_s).setText(u"短"_s);
        page.click(u"cmdQu"_s);
        QCOMPARE(storedTexts(u"k"_s).at(2), u"短"_s);
        QCOMPARE(buttonCount(), 5);
    }

    // Changing --------------------------------------------------------------------------------------------------------

    void changing() {
        ButtonPage page;
        page.choose(u"v"_s);
        const qint64 length = pictureLength(u"v"_s);
        page.click(u"cmdBj"_s);
        QCOMPARE(page.state(), u"添加(-) 确定 取消 open"_s);
        QVERIFY(page.isPending());
        page.fill({u"1"_s, u"v"_s, u"所有"_s, u"tc00tc01"_s});
        page.click(u"cmdBj"_s);
        QCOMPARE(page.said(), QStringList());
        QCOMPARE(storedTexts(u"v"_s), (QStringList{u"1"_s, u"v"_s, u"所有"_s, u"tc00tc01"_s}));
        QCOMPARE(pictureLength(u"v"_s), length);
        QCOMPARE(page.state(), u"添加 修改 删除(-) locked"_s);
        QVERIFY(!page.isPending());

        // What has just been stored can be changed again.
        page.click(u"cmdBj"_s);
        page.box(u"txtM1"_s).setText(u"全"_s);
        page.click(u"cmdBj"_s);
        QCOMPARE(storedTexts(u"v"_s).at(2), u"全"_s);
        QCOMPARE(buttonCount(), 4);
    }

    // Of two buttons with one number the one that was clicked is changed or deleted.
    void twoOfOneNumber() {
        ButtonPage page;
        const QStringList other = storedTexts(u"v"_s);
        putValue(rowOf(u"a"_s), u"序号"_s, other.first().toInt());
        for (const QString& name : {u"改"_s, u"再改"_s}) {
            page.choose(u"a"_s);
            QCOMPARE(page.texts(), storedTexts(u"a"_s));
            page.click(u"cmdBj"_s);
            page.box(u"txtM1"_s).setText(name);
            page.click(u"cmdBj"_s);
            QCOMPARE(storedTexts(u"a"_s).at(2), name);
            QCOMPARE(page.chosenRow(), u"a"_s);
        }
        page.choose(u"a"_s);
        page.click(u"cmdSn"_s);
        QCOMPARE(buttonCount(), 3);
        QCOMPARE(storedTexts(u"v"_s), other);
    }

    void cancelling_data() {
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<bool>("adding");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("state");
        QTest::newRow("a change") << u"a"_s << false << u"a"_s << u"添加 修改 删除 locked"_s;
        QTest::newRow("a new one") << u"a"_s << true << u"a"_s << u"添加 修改 删除 locked"_s;
        QTest::newRow("a new one, none chosen before") << u""_s << true << u"1"_s << u"添加 修改 删除(-) locked"_s;
    }
    void cancelling() {
        QFETCH(QString, chosen);
        QFETCH(bool, adding);
        QFETCH(QString, shown);
        ButtonPage page;
        if (!chosen.isEmpty()) page.choose(chosen);
        page.click(adding ? u"cmdQu"_s : u"cmdBj"_s);
        page.fill({u"77"_s, u"q"_s, u"改"_s, u"tc02"_s});
        page.get<QRadioButton>(u"optAp(0)"_s).click();  // another order in between, and back
        page.get<QRadioButton>(u"optAp(1)"_s).click();
        page.click(u"cmdSn"_s);
        QCOMPARE(page.texts(), storedTexts(shown));
        QTEST(page.state(), "state");
        QVERIFY(!page.isPending());
        QCOMPARE(columnOf(u"tcan"_s, u"编号"_s).join(u""_s), u"v12a"_s);
        QVERIFY(page.boxes.isEmpty());

        if (shown == u"1"_s) {
            page.click(u"cmdBj"_s);
            QCOMPARE(page.boxes.value(0).text, u"系统预设的按钮，不能修改！"_s);
            QCOMPARE(page.boxes.value(0).icon, BoxIcon::question);
            QTEST(page.state(), "state");
        }
    }

    void anotherRowGivesUpWhatWasBegun() {
        ButtonPage page;
        page.choose(u"a"_s);
        page.click(u"cmdBj"_s);
        page.box(u"txtM1"_s).setText(u"改"_s);
        page.choose(u"v"_s);
        QCOMPARE(page.state(), u"添加 修改 删除 locked"_s);
        QCOMPARE(page.texts(), storedTexts(u"v"_s));
        QVERIFY(!page.isPending());
        QCOMPARE(storedTexts(u"a"_s).at(2), u"无图"_s);

        // But not what another group of the page has begun.
        page.click(u"cmdBt"_s);
        page.choose(u"a"_s);
        QVERIFY(page.isPending());
    }

    void leavingThePageGivesUpWhatWasBegun() {
        ButtonPage page;
        page.click(u"cmdQu"_s);
        page.fill({u"5"_s, u"q"_s});
        page.tabs().setCurrentIndex(1);
        page.tabs().setCurrentIndex(0);
        QCOMPARE(page.state(), u"添加 修改(-) 删除(-) locked"_s);
        QCOMPARE(page.texts().join(u""_s), QString());
        QCOMPARE(buttonCount(), 4);
    }

    // Deleting --------------------------------------------------------------------------------------------------------

    void deleting() {
        ButtonPage page;
        page.choose(u"a"_s);
        page.answer = false;
        page.click(u"cmdSn"_s);
        QCOMPARE(page.said(), QStringList{u"删除本像册按钮吗？(编号＝a)\n\n如果是按《确定》；否则按《取消》。"_s});
        QCOMPARE(buttonCount(), 4);

        page.answer = true;
        page.click(u"cmdSn"_s);
        QCOMPARE(columnOf(u"tcan"_s, u"编号"_s).join(u""_s), u"v12"_s);
        const auto& lstBh = page.get<ListBox>(u"lstBh"_s);
        QCOMPARE(lstBh.ListCount(), 3);
        QCOMPARE(lstBh.List(1), u"1 风景"_s);
        QCOMPARE(page.grid().model()->rowCount(), 3);
        QCOMPARE(page.texts().join(u""_s), QString());
        QCOMPARE(page.state(), u"添加 修改(-) 删除(-) locked"_s);
    }

    // Pictures --------------------------------------------------------------------------------------------------------

    void pictureOfANewButton() {
        ButtonPage page;
        page.click(u"cmdQu"_s);
        page.fill({u"5"_s, u"p"_s, u"有图"_s, u"tc01"_s});
        page.load(u"button.jpg"_s, {100, 75});
        page.click(u"cmdAq"_s);
        QCOMPARE(page.said(), QStringList{storeQuestion});
        QVERIFY(!page.panelIsOpen());
        QCOMPARE(pictureLength(u"p"_s), QFileInfo(page.picture).size() + 1);
        QCOMPARE(page.state(), u"添加 修改 删除(-) locked"_s);
    }

    void bitmapsAreStoredAsJpeg() {
        ButtonPage page;
        page.choose(u"a"_s);
        page.click(u"cmdBj"_s);
        page.load(u"button.bmp"_s, {100, 75});
        page.click(u"cmdAq"_s);
        QVERIFY(pictureLength(u"a"_s) > 2);
        const Recordset row = mekTp::catalogue.OpenRecordset(rowOf(u"a"_s));
        QCOMPARE(row.Fields(u"图片"_s).GetChunk(0, 2), QByteArray("\xff\xd8"));
    }

    void agreedPictureWaitsForTheTexts() {
        ButtonPage page;
        page.click(u"cmdQu"_s);
        page.load(u"button.jpg"_s, {100, 75});
        page.click(u"cmdAq"_s);
        QCOMPARE(page.said(), (QStringList{storeQuestion, u"数据没填全，请重新进行！\n\n没填写的项目：(编号)"_s}));
        QVERIFY(!page.panelIsOpen());
        page.click(u"cmdCk(4)"_s);  // a look in between
        page.click(u"cmdCg"_s);
        page.fill({u"5"_s, u"p"_s, u"有图"_s, u"tc01"_s});
        page.click(u"cmdQu"_s);
        QVERIFY(page.boxes.isEmpty());
        QCOMPARE(pictureLength(u"p"_s), QFileInfo(page.picture).size() + 1);
    }

    void pictureThatWasNotAgreedToIsNotStored() {
        ButtonPage page;
        page.choose(u"a"_s);
        page.click(u"cmdBj"_s);
        page.load(u"button.jpg"_s, {100, 75});
        page.click(u"cmdCg"_s);
        page.click(u"cmdBj"_s);
        QCOMPARE(page.said(), QStringList{pictureQuestion});
        QCOMPARE(pictureLength(u"a"_s), 0);
    }

    void unsuitablePicture() {
        ButtonPage page;
        page.choose(u"a"_s);
        page.click(u"cmdBj"_s);
        page.load(u"wide.jpg"_s, {106, 75});
        page.click(u"cmdAq"_s);
        QVERIFY2(page.boxes.value(0).text.contains(u"规格106*75 宽高比1.41"_s), qPrintable(page.boxes.value(0).text));
        QVERIFY(page.panelIsOpen() && !page.button(u"cmdAq"_s).isEnabled());
        QCOMPARE(pictureLength(u"a"_s), 0);
    }

    void picturesOfButtonsAtRestAreNotTaken() {
        ButtonPage page;
        page.choose(u"a"_s);
        page.load(u"button.jpg"_s, {100, 75});
        QVERIFY(!page.button(u"cmdAq"_s).isEnabled());
        page.button(u"cmdBj"_s).click();  // as the keyboard can
        QVERIFY(page.button(u"cmdAq"_s).isEnabled());
        QVERIFY(!page.button(u"cmdCk(4)"_s).isEnabled());
        page.button(u"cmdSn"_s).click();
        QVERIFY(!page.button(u"cmdAq"_s).isEnabled());
        page.button(u"cmdQu"_s).click();
        QVERIFY(!page.panelIsOpen());
    }

    // Albums and keys -------------------------------------------------------------------------------------------------

    void albumsAreOfferedOverTheirBox() {
        ButtonPage page;
        auto& lstBh = page.get<ListBox>(u"lstBh"_s);
        auto& txtC1 = page.box(u"txtC1"_s);
        QWidget* home = lstBh.parentWidget();
        page.choose(u"a"_s);
        txtC1.setFocus();
        QVERIFY(!lstBh.isVisible());

        page.click(u"cmdBj"_s);
        QTest::mouseClick(&txtC1, Qt::LeftButton);
        QVERIFY(lstBh.isVisible());
        QCOMPARE(lstBh.parentWidget()->objectName(), u"fraAs"_s);
        QCOMPARE(lstBh.geometry().bottom() + 1, txtC1.y());
        QCOMPARE(lstBh.geometry().size(), QSize(40, (3 * 180 + 60) / 15));
        QCOMPARE(lstBh.palette().color(QPalette::Base), QColor(0, 255, 0));
        QVERIFY(!lstBh.verticalScrollBar()->isVisible() && !lstBh.horizontalScrollBar()->isVisible());

        const QString before = txtC1.text();
        for (const QString& table : {u"tc02"_s, u"tc02"_s}) {
            const QRect line = lstBh.visualItemRect(lstBh.findItems(table, Qt::MatchExactly).first());
            QTest::mouseClick(lstBh.viewport(), Qt::LeftButton, {}, line.center());
            QVERIFY(!lstBh.isVisible());
            QVERIFY(txtC1.hasFocus());
            QTest::mouseClick(&txtC1, Qt::LeftButton);
            QVERIFY(lstBh.isVisible());
        }
        QCOMPARE(txtC1.text(), before + u"tc02tc02"_s);

        // The mouse beside it closes it, the mouse over it does not.
        QTest::mouseMove(lstBh.viewport(), QPoint(5, 5));
        QVERIFY(lstBh.isVisible());
        QTest::mouseMove(page.form->findChild<QGroupBox*>(u"fraAs"_s), QPoint(5, 350));
        QTRY_VERIFY(!lstBh.isVisible());
        QCOMPARE(lstBh.parentWidget(), home);

        QTest::mouseClick(&txtC1, Qt::LeftButton);
        page.tabs().setCurrentIndex(2);
        QVERIFY(lstBh.isVisible() && lstBh.count() == 4);
        QVERIFY(lstBh.palette().color(QPalette::Base) != QColor(0, 255, 0));
        QVERIFY(lstBh.width() > 100);
    }

    void manyAlbumsScroll() {
        ButtonPage page;
        for (int i = 10; i < 60; ++i) addAlbum(i, u"tc%1"_s.arg(i), u"册"_s);
        page.choose(u"a"_s);
        page.click(u"cmdBj"_s);
        page.box(u"txtC1"_s).setFocus();
        const auto& lstBh = page.get<ListBox>(u"lstBh"_s);
        QVERIFY(lstBh.isVisible() && lstBh.y() >= 16 && lstBh.verticalScrollBar()->maximum() > 0);
    }

    void keysWalkThroughTheBoxes_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QString>("to");
        QTest::newRow("number, Enter") << u"txtX1"_s << Qt::Key_Return << u"txtB1"_s;
        QTest::newRow("number, Up") << u"txtX1"_s << Qt::Key_Up << u"txtM1"_s;
        QTest::newRow("code, Down") << u"txtB1"_s << Qt::Key_Down << u"txtM1"_s;
        QTest::newRow("code, Up") << u"txtB1"_s << Qt::Key_Up << u"txtX1"_s;
        QTest::newRow("name, Enter") << u"txtM1"_s << Qt::Key_Enter << u"txtX1"_s;
        QTest::newRow("name, Up") << u"txtM1"_s << Qt::Key_Up << u"txtB1"_s;
        QTest::newRow("a letter stays") << u"txtM1"_s << Qt::Key_A << u"txtM1"_s;
    }
    void keysWalkThroughTheBoxes() {
        QFETCH(QString, from);
        QFETCH(Qt::Key, key);
        QFETCH(QString, to);
        const ButtonPage page;
        page.box(from).setFocus();
        QTest::keyClick(&page.box(from), key);
        QCOMPARE(page.form->focusWidget()->objectName(), to);
    }
};

const Registered<TestButtonSetup> registered;

}  // namespace

#include "button_setup_test.moc"
