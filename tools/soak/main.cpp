#include "platform/base/error.h"
#include "soak/full_disk.h"
#include "soak/killer.h"
#include "soak/session.h"
#include "soak/staged_kills.h"
#include "soak/unsynced_vfs.h"
#include "soak/worked_program.h"

#include <unistd.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Plays the scenes in turn until killed; a line "-" among them ends it there.
int work(const QString& folder, quint64 seed, const QStringList& scenes) {
    qsizetype played = 0;
    return workProgram(folder, seed, Report(STDOUT_FILENO), [&] {
        const QString& scene = scenes[played++ % scenes.size()];
        return scene == u"-" ? QString() : scene;
    });
}

int run(QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Kills the working program time and again and looks at what it has left, or works it for long and looks at "
        "what it takes."_s);
    parser.addHelpOption();
    const auto option = [&](const QString& name, const QString& text, const QString& value = {},
                            const QString& usual = {}) {
        parser.addOption({name, text, value, usual});
    };
    option(u"kills"_s, u"How often to kill it."_s, u"number"_s, u"500"_s);
    option(u"minutes"_s, u"End after this time in any case."_s, u"number"_s, u"60"_s);
    option(u"seed"_s, u"Of all that happens by chance."_s, u"number"_s, u"1"_s);
    option(u"unsynced"_s, u"Lose with the process what the engine has not synced, as a power cut does."_s);
    option(u"full"_s, u"Fill the disk up instead of killing, and let it end."_s);
    option(u"only"_s, u"Only these scenes, with commas between them."_s, u"scenes"_s);
    option(u"rounds"_s, u"Do not kill it: play so many rounds of scenes and watch memory and files."_s, u"rounds"_s);
    option(u"stage"_s,
           u"Kill what the program does without windows instead: backup, restore, raising, rescue or conversion."_s,
           u"name"_s);
    option(u"play"_s, u"Be the program that does such a thing."_s, u"name"_s);
    option(u"room"_s, u"Let no file of that grow beyond so many bytes."_s, u"bytes"_s, u"-1"_s);
    option(u"folder"_s, u"Where to work."_s, u"folder"_s, QDir::temp().filePath(u"lunq-soak/program"_s));
    option(u"work"_s, u"Be the worked program, in this folder."_s, u"folder"_s);
    option(u"scenes"_s, u"What the worked program is to do."_s, u"scenes"_s);
    parser.process(application);
    const quint32 seed = parser.value(u"seed"_s).toUInt();
    if (parser.isSet(u"play"_s))
        return playStage(parser.value(u"play"_s), parser.value(u"folder"_s),
                         {parser.value(u"room"_s).toLongLong(), parser.isSet(u"unsynced"_s), seed});
    if (parser.isSet(u"work"_s)) {
        if (parser.isSet(u"unsynced"_s)) loseUnsyncedWrites(seed);
        if (parser.isSet(u"full"_s)) letDiskFillUp(QDir(parser.value(u"work"_s)).filePath(u"lunq.mdb"_s), seed);
        return work(parser.value(u"work"_s), parser.value(u"seed"_s).toULongLong(),
                    parser.value(u"scenes"_s).split(u','));
    }
    const QString fresh = QDir(QCoreApplication::applicationDirPath()).filePath(u"../lunq-fresh.mdb"_s);
    const QString folder = parser.value(u"folder"_s);
    const int minutes = parser.value(u"minutes"_s).toInt();
    const QStringList scenes = parser.value(u"only"_s).split(u',', Qt::SkipEmptyParts);
    if (parser.isSet(u"rounds"_s))
        return playSession({fresh, folder, parser.value(u"rounds"_s).toInt(), minutes, seed, scenes});
    const KillOrder order{QCoreApplication::applicationFilePath(),
                          fresh,
                          folder,
                          parser.value(u"kills"_s).toInt(),
                          minutes,
                          seed,
                          parser.isSet(u"unsynced"_s),
                          parser.isSet(u"full"_s),
                          scenes};
    return parser.isSet(u"stage"_s) ? killStage(parser.value(u"stage"_s), order) : killAgainAndAgain(order);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*=false");  // what the toolkit misses there
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"lunq"_s);
    try {
        return run(application);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "lunq-soak: %s\n", failure.what());
        return 2;
    }
}
