#include "soak/scenes.h"

#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "soak/full_disk.h"
#include "start/program.h"

using namespace Qt::Literals::StringLiterals;

Scenes::Scenes(Program& program, const QString& folder, const Report& report, quint64 seed)
    : program_(program), folder_(folder), report_(report), seed_(seed), samples_(seed << 20), random_(quint32(seed)) {
    chooseInBoxesWith([this](const BoxText& box) {
        said_ << box.text;
        if (box.title == u"错误提示" && !isDiskFull()) report_({u"fault"_s, QString(box.text).replace(u'\n', u' ')});
        // Work that a kill has left is given up: nothing tells what would become of it. On a full disk nothing is
        // given away for room.
        const QStringList always = isDiskFull() ? QStringList{u"放弃"_s, u"取消"_s} : QStringList{u"放弃"_s};
        for (const QString& answer : preferred_ + always)
            if (const auto index = box.answers.indexOf(answer); index >= 0) return int(index);
        return 0;
    });
    answerFileDialogsWith([this](const FileQuestion&) { return file_; });
}

Scenes::~Scenes() {
    answerBoxesWith({});
    answerFileDialogsWith({});
}

const std::map<QString, void (Scenes::*)()>& Scenes::all() {
    static const std::map<QString, void (Scenes::*)()> scenes{
        {u"append"_s, &Scenes::appendFiles},
        {u"append-stopped"_s, &Scenes::stopIntake},
        {u"replace"_s, &Scenes::replaceFiles},
        {u"from-catalogue"_s, &Scenes::takeInCatalogue},
        {u"renumber"_s, &Scenes::renumber},
        {u"records"_s, &Scenes::editRecords},
        {u"delete"_s, &Scenes::deletePictures},
        {u"put-back"_s, &Scenes::putBack},
        {u"bin-empty"_s, &Scenes::emptyBin},
        {u"album-back"_s, &Scenes::putAlbumBack},
        {u"prove"_s, &Scenes::provePictures},
        {u"hashes"_s, &Scenes::keepHashes},
        {u"from-backup"_s, &Scenes::takeFromBackup},
        {u"kept-steps"_s, &Scenes::keepSteps},
        {u"album"_s, &Scenes::makeAndDeleteAlbum},
        {u"to-files"_s, &Scenes::exportPictures},
        {u"move-to-files"_s, &Scenes::movePicturesToFiles},
        {u"to-catalogue"_s, &Scenes::copyToCatalogue},
        {u"move-to-catalogue"_s, &Scenes::moveToCatalogue},
        {u"button"_s, &Scenes::addAndDeleteButton},
        {u"edit-album"_s, &Scenes::editAlbumPicture},
        {u"edit-file"_s, &Scenes::editFile},
        {u"button-picture"_s, &Scenes::makeButtonPicture},
        {u"browse"_s, &Scenes::browse},
    };
    return scenes;
}

QStringList Scenes::names() {
    QStringList names;
    for (const auto& [name, scene] : all()) names << name;
    return names;
}

void Scenes::play(const QString& scene) {
    scene_ = scene;
    (this->*all().at(scene))();
    home();
}

void Scenes::work(const std::function<void()>& handler) {
    report_({u"scene"_s, scene_});
    handler();
    report_({u"end"_s, scene_});
    requireRoom();
}

void Scenes::requireRoom() {
    if (isDiskFull()) throw Error(u"nobody knows what was done on the full disk"_s);
}

void Scenes::run(const QString& button, const QString& closing) {
    work([&] { clickAndWait(button, closing); });
}

void Scenes::clickAndWait(const QString& button, const QString& closing) {
    waitForBox([&] { settings_.click(button); }, closing);
}

void Scenes::waitForBox(const std::function<void()>& deed, const QString& closing) {
    constexpr int patience = 120000;
    const auto before = said_.size();
    const auto isClosing = [&](const QString& text) { return text.startsWith(closing); };
    deed();
    const auto isOver = [&] {
        return (isDiskFull() && said_.size() > before) || std::any_of(said_.begin() + before, said_.end(), isClosing);
    };
    if (!QTest::qWaitFor(isOver, patience)) throw Error(u"nothing says "_s + closing);
    requireRoom();
}

void Scenes::home() const {
    if (settings_.isThere()) settings_.leaveBy(u"cmdFh"_s, u"frmTp"_s);
    if (editor_.isThere()) editor_.leaveBy(u"mnuFh"_s, u"frmTp"_s);
}

void Scenes::settings(int page) const {
    if (!settings_.isThere()) viewer_.leaveBy(u"tlb1:bj"_s, u"frmSz"_s);
    settings_.openPage(page);
}

void Scenes::editor() const {
    viewer_.leaveBy(u"mnuCl"_s, u"frmCl"_s);
}

QString Scenes::newFolder() {
    const QString path = QDir(folder_).filePath(u"folder%1-%2"_s.arg(seed_).arg(++folders_));
    if (!QDir().mkpath(path)) throw Error(u"no folder "_s + path);
    return path;
}

QList<int> Scenes::chosenRows(int count, int of) {
    QSet<int> rows;
    while (rows.size() < qMin(count, of)) rows << int(random_.bounded(of));
    return rows.values();
}
