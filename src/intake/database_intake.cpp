#include "intake/database_intake.h"

#include "catalogue/mektp.h"
#include "intake/intake_texts.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <utility>

using namespace Qt::Literals::StringLiterals;

DatabaseIntake::DatabaseIntake(SharedControls& shared, FormState& state, HintLine& hints, BrowserPanel& browser,
                               MappingPanel& mapping, CodeButtons& codeButtons, PreviewPanel& preview,
                               const Controls& controls)
    : shared_(shared),
      state_(state),
      hints_(hints),
      browser_(browser),
      mapping_(mapping),
      codeButtons_(codeButtons),
      preview_(preview),
      controls_(controls) {
    const auto onPage = [this](auto slot) {
        return guarded(shared_.form, [this, slot] {
            if (inFront()) (this->*slot)();
        });
    };
    connect(&mapping_, &MappingPanel::tableChosen, this, guarded(shared_.form, [this](const QString& table) {
        if (inFront()) tableChosen(table);
    }));
    connect(&mapping_, &MappingPanel::tableDropped, this, [this] {
        controls_.chkZd->setVisible(inFront() && browser_.isPictureMode());
        controls_.lbl14->clear();
    });
    connect(&mapping_, &MappingPanel::indexChosen, this, [this](const QString& field) {
        if (inFront()) controls_.lbl14->setText(u"索引字段名："_s + field);
    });
    connect(&mapping_, &MappingPanel::mapped, this, onPage(&DatabaseIntake::showSource));
    connect(shared_.lstSu, &ListBox::lineClicked, this, onPage(&DatabaseIntake::lstSuClick));
    preview_.otherTable = [this] { return choosesRows_ && inFront() ? sourceColumns() : std::nullopt; };
}

bool DatabaseIntake::inFront() const {
    return shared_.sstFz->currentIndex() == intakeTab;
}

void DatabaseIntake::fileClicked() {
    if (state_.selectedFileCount == 0) {
        giveUp();
        return;
    }
    if (state_.targetTable.isEmpty()) {
        browser_.selectQuietly(false);
        say(shared_.form, chooseAlbumFirst);
        return;
    }
    QStringList chosen;
    for (const int index : browser_.selectedFiles()) chosen << browser_.fil1()->List(index);
    browser_.setEcho(selectionEcho(chosen));
    openDatabase(state_.pickedFilePath);
    if (state_.selectedFileCount > 1) sayOnlyOne();
}

void DatabaseIntake::openDatabase(const QString& path) {
    state_.currentFolder = browser_.fil1()->Path();
    state_.sourceDatabasePath = path;
    state_.sourceTable.clear();
    state_.targetDatabasePath = mekTp::cataloguePath();
    controls_.chkZd->hide();
    controls_.lbl13->clear();
    controls_.lbl14->clear();
    try {
        const Hourglass hourglass;
        mapping_.chooseDatabase(u"请选择来源数据表"_s);
    } catch (...) {
        giveUp();
        throw;
    }
    controls_.lbl12->setText(u"源库："_s + path);
    controls_.lbl12->setToolTip(path);
}

void DatabaseIntake::sayOnlyOne() {
    say(shared_.form, onlyOneDatabase, BoxIcon::information);
    browser_.selectQuietly(false);
}

void DatabaseIntake::tableChosen(const QString& table) {
    if (choosesRows_) showTarget();
    controls_.lbl13->setText(u"源表："_s + table);
    controls_.lbl13->setToolTip(table);
    controls_.lbl14->clear();
    controls_.chkZd->show();
}

/// The fields are mapped: the grid shows the records to choose from, and lstSu those that are chosen.
void DatabaseIntake::showSource() {
    choosesRows_ = true;
    codeButtons_.ycbh();
    shared_.lstSu->clear();
    shared_.lstSu->setColumns(1);
    shared_.sstFz->putOn(intakeTab, shared_.lstSu, 5200, 5115, 4015, 1320);
    shared_.lstSu->show();
    shared_.lstSu->raise();
    placeGrid(true);
    // The headings of the source's columns are their own names.
    albumHeadings_ = shared_.msgBm->FormatString();
    shared_.msgBm->setFormatString({});
    controls_.lblJl->setText(u"已选择的源表中要复制的记录的“"_s + mapping_.indexFieldName() + u"”"_s);
    const TableShape shape = shapeOf(mapping_.sourceDatabase(), state_.sourceTable);
    shared_.datBj->setDatabaseName(state_.sourceDatabasePath);
    shared_.datBj->setRecordSource(
        allRecordsSql(state_.sourceTable, fieldNamed(shape, u"序号"_s) ? u"序号"_s : mapping_.indexFieldName()));
    shared_.datBj->Refresh();
}

/// The picture is that which would be taken. Where none is mapped, an album's own picture is shown all the same.
std::optional<PreviewPanel::OtherTable> DatabaseIntake::sourceColumns() const {
    QString picture = sourceOf(mapping_.fieldMapping(), u"图片"_s);
    if (picture.isEmpty()) picture = u"图片"_s;
    return PreviewPanel::OtherTable{state_.sourceTable, mapping_.indexFieldName(), picture};
}

void DatabaseIntake::placeGrid(bool source) {
    TabControl* sstFz = shared_.sstFz;
    sstFz->putOn(intakeTab, shared_.msgBm, 5180, source ? 990 : 1320, 4100, source ? 3855 : 3525);
    sstFz->putOn(intakeTab, controls_.lblMk, source ? 5250 : 5750, 735, source ? 2950 : 2400, 240);
    sstFz->putOn(intakeTab, preview_.cmdCk(0), leftOf(preview_.cmdCk(0)), source ? 670 : 990);
    controls_.lblMk->setText(source ? u"在下表选择源表中要复制的记录"_s : u"目 标 数 据 库 表"_s);
    shared_.msgBm->raise();
    preview_.cmdCk(0)->raise();
}

void DatabaseIntake::showTarget() {
    if (std::exchange(choosesRows_, false)) shared_.msgBm->setFormatString(albumHeadings_);
    shared_.lstSu->clear();
    shared_.lstSu->hide();
    placeGrid(false);
    shared_.datBj->setDatabaseName(mekTp::cataloguePath());
    if (state_.albumTable.isEmpty()) {
        // A source that nothing shows any more is not kept open.
        shared_.datBj->setRecordSource(u"SELECT * FROM tcbm WHERE 1 = 0"_s);
        attempt([&] { shared_.datBj->Refresh(); });
        shared_.msgBm->Clear();
        return;
    }
    attempt([&] { codeButtons_.bhan(); });
    shared_.datBj->setRecordSource(allRecordsSql(state_.albumTable, u"序号"_s));
    attempt([&] { shared_.datBj->Refresh(); });
    Q_EMIT targetShown();
}

void DatabaseIntake::rowClicked() {
    if (!choosesRows_) return;
    const QString& field = mapping_.indexFieldName();
    const FieldValue key = shared_.datBj->Recordset().Fields(field).Value();
    if (key.isNull()) {
        say(shared_.form, u"这条记录的“%1”为空，不能选择。"_s.arg(field));
        return;
    }
    if (isChosen(key.toText())) {
        say(shared_.form, u"选择的记录重复！"_s);
        return;
    }
    shared_.lstSu->AddItem(key.toText());
    hints_.show(u"操作提示：要转录的记录选择完成后，请按“录入图册”按钮开始转录。"_s);
    rowsChanged();
}

bool DatabaseIntake::isChosen(const QString& key) const {
    for (int i = 0; i < shared_.lstSu->ListCount(); ++i)
        if (shared_.lstSu->List(i) == key) return true;
    return false;
}

void DatabaseIntake::rowsChanged() {
    state_.intakeStep = 6;
    mapping_.cmdLr()->setEnabled(shared_.lstSu->ListCount() > 0);
}

void DatabaseIntake::chooseAll() {
    if (!choosesRows_) return;
    const int unnamed = listAll();
    hints_.show(u"操作提示：按“录入图片”开始录入；按“撤消”，撤消刚才的选择。"_s);
    rowsChanged();
    mapping_.cmdLr()->setEnabled(true);
    if (unnamed > 0)
        say(shared_.form, u"源表中有%1条记录的“%2”为空，没有选中。"_s.arg(unnamed).arg(mapping_.indexFieldName()),
            BoxIcon::information);
}

/// Puts the keys of all source records in lstSu. Returns how many records have none.
int DatabaseIntake::listAll() {
    const Hourglass hourglass;
    const QString& field = mapping_.indexFieldName();
    QStringList keys;
    int unnamed = 0;
    for (Recordset rows = mapping_.sourceDatabase().OpenRecordset(allRecordsSql(state_.sourceTable, field));
         !rows.Eof(); rows.MoveNext()) {
        const FieldValue key = rows.Fields(field).Value();
        if (key.isNull())
            ++unnamed;
        else
            keys << key.toText();
    }
    shared_.lstSu->clear();
    shared_.lstSu->addItems(keys);
    return unnamed;
}

/// A click on a chosen record tells only how far one has come.
void DatabaseIntake::lstSuClick() {
    if (choosesRows_) state_.intakeStep = shared_.lstSu->ListCount() > 0 ? 6 : 5;
}

void DatabaseIntake::stepBack() {
    switch (state_.intakeStep) {
        case 3:
            mapping_.undoDatabase();
            controls_.lbl13->clear();
            break;
        case 4:
            mapping_.undoTable();
            break;
        case 5:
            showTarget();
            mapping_.undoMapping();
            break;
        case 6:
            shared_.lstSu->clear();
            mapping_.cmdLr()->setEnabled(false);
            state_.intakeStep = 5;
            hints_.czts(6);
            break;
        default:
            break;
    }
}

void DatabaseIntake::giveUp() {
    if (choosesRows_) showTarget();
    mapping_.undoDatabase();
    for (QWidget* part : {static_cast<QWidget*>(controls_.chkZd), static_cast<QWidget*>(mapping_.cmdQx()),
                          static_cast<QWidget*>(mapping_.cmdLr())})
        part->hide();
    for (QLabel* line : {controls_.lbl12, controls_.lbl13, controls_.lbl14}) line->clear();
}

void DatabaseIntake::endRun() {
    if (choosesRows_) showTarget();
    mapping_.reset();
    browser_.showFileParts(false);
}

CopyOrder DatabaseIntake::order(bool replace) const {
    QStringList keys;
    for (int i = 0; i < shared_.lstSu->ListCount(); ++i) keys << shared_.lstSu->List(i);
    return {state_.sourceDatabasePath,   state_.sourceTable,  mapping_.indexFieldName(),
            mapping_.fieldMapping(),     recordsOfKeys(keys), replace,
            controls_.chkZd->isChecked()};
}
