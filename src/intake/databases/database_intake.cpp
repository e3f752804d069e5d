#include "intake/databases/database_intake.h"

#include "catalogue/mektp.h"
#include "intake/browsing/intake_texts.h"
#include "intake/databases/known_sources.h"
#include "intake/databases/mapping_proposal.h"
#include "intake/databases/source_boxes.h"
#include "platform/base/error.h"
#include "platform/database/foreign/foreign_copy.h"
#include "platform/database/records/reading_notes.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "settings/frame/columns.h"

#include <QAction>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int recordButtonLeft = 8250;
const QRect chosenPlace(5200, 5115, 4015, 1320);
}  // namespace

DatabaseIntake::DatabaseIntake(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser,
                               MappingPanel& mapping, CodeButtons& codeButtons, PreviewPanel& preview,
                               ChosenLines& chosen, IntakeSigns& signs)
    : frame_(frame),
      flow_(flow),
      browser_(browser),
      mapping_(mapping),
      codeButtons_(codeButtons),
      preview_(preview),
      chosen_(chosen),
      signs_(signs),
      sample_(frame),
      otherTexts_(new QAction(u"文字不对？换一种编码重读"_s, frame.form)),
      whole_(frame) {
    connect(&whole_, &WholeCatalogue::over, this, [this] { giveUp(); });
    otherTexts_->setObjectName(u"mnuBm"_s);
    connect(otherTexts_, &QAction::triggered, this, guarded(frame_.form, [this] { readTextsOtherwise(); }));
    mapping_.offerForTables(otherTexts_);
    connect(&mapping_, &MappingPanel::cleared, this, [this] { hideSample(); });
    const auto onPage = [this](auto slot) {
        return guarded(frame_.form, [this, slot] {
            if (inFront()) (this->*slot)();
        });
    };
    connect(&mapping_, &MappingPanel::tableChosen, this, guarded(frame_.form, [this](const QString& table) {
        if (inFront()) tableChosen(table);
    }));
    connect(&mapping_, &MappingPanel::tableDropped, this, [this] {
        Q_EMIT fillingOffered(inFront() && browser_.isPictureMode());
        signs_.clearIndexField();
    });
    connect(&mapping_, &MappingPanel::indexChosen, this, [this](const QString& field) {
        if (inFront()) signs_.tellIndexField(field);
    });
    connect(&mapping_, &MappingPanel::mapped, this, onPage(&DatabaseIntake::showSource));
    connect(&chosen_, &ChosenLines::clicked, this, onPage(&DatabaseIntake::chosenClicked));
    preview_.otherTable = [this] { return choosesRows_ && inFront() ? sourceColumns() : std::nullopt; };
}

bool DatabaseIntake::inFront() const {
    return frame_.isInFront(intakeTab);
}

void DatabaseIntake::fileClicked() {
    if (browser_.selectedCount() == 0) {
        giveUp();
        return;
    }
    if (flow_.targetTable().isEmpty()) {
        browser_.selectQuietly(false);
        say(frame_.form, chooseAlbumFirst);
        return;
    }
    browser_.setEcho(selectionEcho(browser_.selectedNames()));
    openDatabase(browser_.pickedFile());
    if (browser_.selectedCount() > 1) sayOnlyOne();
}

void DatabaseIntake::openDatabase(const QString& path) {
    if (choosesRows_) showTarget();
    flow_.setTarget(mekTp::cataloguePath(), flow_.targetTable());
    forgetTable(path);
    readDatabase(path);
    askAboutTexts(path);
    signs_.tellSourceFile(path);
    sayDamage(frame_.form, ReadingNotes(mapping_.sourceDatabase()));
}

/// No table of the database is chosen.
void DatabaseIntake::forgetTable(const QString& path) {
    flow_.setSource(path, {});
    Q_EMIT fillingOffered(false);
    signs_.clearSourceTable();
    signs_.clearIndexField();
}

void DatabaseIntake::readDatabase(const QString& path) {
    try {
        const Hourglass hourglass;
        if (const int codePage = knownSources::codePage(path); codePage != 0) chooseCodePage(path, codePage);
        mapping_.chooseDatabase(u"请选择来源数据表"_s);
    } catch (...) {
        giveUp();
        throw;
    }
    otherTexts_->setVisible(ReadingNotes(mapping_.sourceDatabase()).codePage() != 0);
    whole_.offer(mapping_.sourceDatabase());
}

void DatabaseIntake::askAboutTexts(const QString& path) {
    const ReadingNotes notes(mapping_.sourceDatabase());
    const std::optional<int> codePage = askCodePage(frame_.form, notes, u"（以后打开这个文件不再询问）"_s);
    if (!codePage) return;
    if (*codePage == notes.codePage())
        knownSources::setCodePage(path, *codePage);
    else
        readTextsAs(path, *codePage);
}

void DatabaseIntake::readTextsAs(const QString& path, int codePage) {
    knownSources::setCodePage(path, codePage);
    forgetTable(path);
    readDatabase(path);
}

void DatabaseIntake::readTextsOtherwise() {
    if (!inFront() || choosesRows_ || !mapping_.sourceDatabase().isOpen()) return;
    const int codePage = ReadingNotes(mapping_.sourceDatabase()).codePage();
    constexpr int gbk = 936, western = 1252;
    const QString path = flow_.sourceDatabase();
    if (codePage != 0) readTextsAs(path, codePage == gbk ? western : gbk);
}

void DatabaseIntake::sayOnlyOne() {
    say(frame_.form, onlyOneDatabase, BoxIcon::information);
    browser_.selectQuietly(false);
}

void DatabaseIntake::tableChosen(const QString& table) {
    if (choosesRows_) showTarget();
    signs_.tellSourceTable(table);
    signs_.clearIndexField();
    Q_EMIT fillingOffered(true);
    if (areAlike(shapeOf(mekTp::catalogue, flow_.targetTable()), shapeOf(mapping_.sourceDatabase(), table))) return;
    codeButtons_.ycbh();
    sample_.show(mapping_.sourceDatabase(), table);
}

void DatabaseIntake::hideSample() {
    if (!sample_.isShown()) return;
    sample_.hide();
    if (inFront() && !choosesRows_ && !frame_.albums.table().isEmpty()) attempt([&] { codeButtons_.bhan(); });
}

/// The fields are mapped: the grid shows the records to choose from, and the list those that are chosen.
void DatabaseIntake::showSource() {
    readable_ = ReadableRows(mapping_.sourceDatabase(), flow_.sourceTable(), mapping_.indexFieldName());
    choosesRows_ = true;
    hideSample();
    codeButtons_.ycbh();
    chosen_.clear();
    chosen_.setColumns(1);
    chosen_.putOn(intakeTab, chosenPlace, beside(intakeShare, 1) + movesDown);
    chosen_.show();
    placeGrid(true);
    // The headings of the source's columns are their own names.
    frame_.grid.setHeadings({});
    signs_.tell(u"已选择的源表中要复制的记录的“"_s + mapping_.indexFieldName() + u"”"_s);
    frame_.grid.list(readable_.sql(columnOfOrder()), flow_.sourceDatabase());
    sayDamage(frame_.form, flow_.sourceTable(), readable_, frame_.grid.total());
}

QString DatabaseIntake::columnOfOrder() const {
    const TableShape shape = shapeOf(mapping_.sourceDatabase(), flow_.sourceTable());
    return fieldNamed(shape, u"序号"_s) ? u"序号"_s : mapping_.indexFieldName();
}

/// The picture is that which would be taken. Where none is mapped, an album's own picture is shown all the same.
std::optional<PreviewPanel::OtherTable> DatabaseIntake::sourceColumns() const {
    QString picture = sourceOf(mapping_.fieldMapping(), u"图片"_s);
    if (picture.isEmpty()) picture = u"图片"_s;
    return PreviewPanel::OtherTable{flow_.sourceTable(), mapping_.indexFieldName(), picture};
}

void DatabaseIntake::placeGrid(bool source) {
    frame_.grid.putOn(intakeTab, {5180, source ? 990 : 1320, 4100, source ? 3855 : 3525});
    if (source)
        signs_.headSource();
    else
        signs_.headAlbum();
    frame_.grid.raise();
    preview_.putOpener(intakeRecordOpener, intakeTab, recordButtonLeft, source ? 670 : 990);
}

void DatabaseIntake::showTarget() {
    if (std::exchange(choosesRows_, false)) frame_.grid.setHeadings(pictureHeadings);
    chosen_.clear();
    chosen_.hide();
    placeGrid(false);
    const QString& album = frame_.albums.table();
    if (album.isEmpty()) {
        // A source that nothing shows any more is not kept open.
        attempt([&] { frame_.grid.list(u"SELECT * FROM tcbm WHERE 1 = 0"_s); });
        frame_.grid.clear();
        return;
    }
    attempt([&] { codeButtons_.bhan(); });
    attempt([&] { frame_.grid.list(allRecordsSql(album, u"序号"_s)); });
    Q_EMIT targetShown();
}

void DatabaseIntake::rowClicked() {
    if (!choosesRows_) return;
    const QString& field = mapping_.indexFieldName();
    const FieldValue key = frame_.grid.records().Fields(field).Value();
    if (key.isNull()) {
        say(frame_.form, u"这条记录的“%1”为空，不能选择。"_s.arg(field));
        return;
    }
    if (chosen_.all().contains(key.toText())) {
        say(frame_.form, u"选择的记录重复！"_s);
        return;
    }
    chosen_.add(key.toText());
    frame_.hints.show(u"操作提示：要转录的记录选择完成后，请按“录入图册”按钮开始转录。"_s);
    rowsChanged();
}

void DatabaseIntake::rowsChanged() {
    flow_.goTo(6);
    mapping_.allowEnter(chosen_.count() > 0);
}

void DatabaseIntake::chooseAll() {
    if (!choosesRows_) return;
    const int unnamed = listAll();
    frame_.hints.show(u"操作提示：按“录入图片”开始录入；按“撤消”，撤消刚才的选择。"_s);
    rowsChanged();
    mapping_.allowEnter(true);
    if (unnamed > 0)
        say(frame_.form, u"源表中有%1条记录的“%2”为空，没有选中。"_s.arg(unnamed).arg(mapping_.indexFieldName()),
            BoxIcon::information);
}

/// Puts the keys of all source records in the list. Returns how many records have none.
int DatabaseIntake::listAll() {
    const Hourglass hourglass;
    const QString& field = mapping_.indexFieldName();
    QStringList keys;
    int unnamed = 0;
    for (Recordset rows = mapping_.sourceDatabase().OpenRecordset(readable_.sql(field)); !rows.Eof(); rows.MoveNext()) {
        const FieldValue key = rows.Fields(field).Value();
        if (key.isNull())
            ++unnamed;
        else
            keys << key.toText();
    }
    chosen_.clear();
    chosen_.addAll(keys);
    return unnamed;
}

/// A click on a chosen record tells only how far one has come.
void DatabaseIntake::chosenClicked() {
    if (choosesRows_) flow_.goTo(chosen_.count() > 0 ? 6 : 5);
}

void DatabaseIntake::stepBack() {
    switch (flow_.step()) {
        case 3:
            mapping_.undoDatabase();
            whole_.offer({});
            signs_.clearSourceTable();
            break;
        case 4:
            mapping_.undoTable();
            break;
        case 5:
            showTarget();
            mapping_.undoMapping();
            break;
        case 6:
            chosen_.clear();
            mapping_.allowEnter(false);
            flow_.goTo(5);
            frame_.hints.czts(6);
            break;
        default:
            break;
    }
}

void DatabaseIntake::giveUp() {
    if (choosesRows_) showTarget();
    mapping_.undoDatabase();
    whole_.offer({});
    Q_EMIT fillingOffered(false);
    mapping_.hideButtons();
    signs_.clearSource();
}

void DatabaseIntake::endRun() {
    if (choosesRows_) showTarget();
    mapping_.reset();
    whole_.offer({});
    browser_.showFileParts(false);
}

/// Fields with the names of the album's need no memory.
void DatabaseIntake::rememberMapping() const {
    const FieldMapping& mapping = mapping_.fieldMapping();
    const bool isPlain = std::ranges::all_of(
        mapping, [](const FieldPair& pair) { return pair.source.compare(pair.target, Qt::CaseInsensitive) == 0; });
    const QString& file = flow_.sourceDatabase();
    if (!isPlain || !knownSources::mapping(file, flow_.sourceTable()).empty())
        knownSources::setMapping(file, flow_.sourceTable(), isPlain ? FieldMapping() : mapping);
}

CopyOrder DatabaseIntake::order(bool replace, bool fillFields) const {
    return {flow_.sourceDatabase(),
            flow_.sourceTable(),
            mapping_.indexFieldName(),
            mapping_.fieldMapping(),
            recordsOfKeys(chosen_.all()),
            replace,
            fillFields};
}
