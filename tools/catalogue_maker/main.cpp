#include "catalogue/fixed_tables.h"
#include "catalogue_maker/chapters.h"
#include "platform/base/error.h"
#include "platform/desktop/look.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <exception>

using namespace Qt::Literals::StringLiterals;

namespace {

void makeCatalogue(const QString& path, const QString& previews) {
    const Database database = createDatabase(path);
    Workshop workshop;
    Transaction transaction(database);
    createFixedTables(database);
    fillDemonstrationAlbum(database, workshop);
    fillSelectionButtons(database, workshop);
    fillColourSchemes(database);
    fillSettings(database, workshop);
    fillHelpContents(database);
    transaction.commit();
    fillWindowPreviews(database, path, previews, workshop);
}

/// What the engine keeps beside a file goes with it.
void removeDatabase(const QString& path) {
    for (const QString& file : {path, path + u"-journal"_s}) QFile::remove(file);
}

}  // namespace

/// make_catalogue FILE FOLDER: makes the catalogue that the program is shipped with, and writes the pictures of the
/// main window to the folder. Refuses to touch a catalogue that is there.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    if (argc != 3) {
        std::fputs("usage: make_catalogue FILE FOLDER\n", stderr);
        return 2;
    }
    const QString target = QFile::decodeName(argv[1]);
    if (QFile::exists(target)) {
        std::fprintf(stderr, "%s is there already and stays as it is.\n", argv[1]);
        return 1;
    }
    const QString unfinished = target + u".part"_s;
    removeDatabase(unfinished);
    try {
        const QString previews = QFile::decodeName(argv[2]);
        QDir().mkpath(previews);
        makeCatalogue(unfinished, previews);
        QFile made(unfinished);
        if (!made.rename(target)) throw Error(u"%1: %2"_s.arg(target, made.errorString()));
        removeDatabase(unfinished);
        return 0;
    } catch (const Error& error) {
        std::fprintf(stderr, "make_catalogue: %s\n", qUtf8Printable(error.text()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_catalogue: %s\n", error.what());
    }
    removeDatabase(unfinished);
    return 1;
}
