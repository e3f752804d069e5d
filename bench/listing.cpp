// Times the listing of the pictures in a tree of folders by their content: bench_listing [files]

#include "intake/browsing/picture_files.h"
#include "table.h"
#include "timing.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rounds = 5;
constexpr int filesInFolder = 100;

void makeTree(const QString& root, int files) {
    for (int i = 0; i < files; ++i) {
        const QString folder = root + u'/' + QString::number(i / filesInFolder);
        if (i % filesInFolder == 0) QDir().mkpath(folder);
        QFile file(folder + u"/picture %1.png"_s.arg(i));
        if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write");
        file.write("\x89PNG\r\n\x1a\n" + QByteArray(4000, 'x'));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const int files = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20000;
    const QTemporaryDir folder;
    makeTree(folder.path(), files);
    std::vector<double> own, others;
    for (int i = 0; i <= rounds; ++i) {
        const double ours = milliseconds([&] {
            if (picturesBelow(folder.path(), ListedFiles::byContent, [](qsizetype) { return true; }).size() != files)
                qFatal("not all were found");
        });
        const double theirs = milliseconds([&] {
            QProcess find;
            find.setStandardOutputFile(QProcess::nullDevice());
            find.start(u"find"_s,
                       {folder.path(), u"-type"_s, u"f"_s, u"-exec"_s, u"head"_s, u"-qc16"_s, u"{}"_s, u"+"_s});
            find.waitForFinished(-1);
        });
        if (i == 0) continue;  // the first round warms
        own.push_back(ours);
        others.push_back(theirs);
    }
    row("listing", {.what = std::to_string(files) + " files in folders, by content, warm",
                    .measured = median(own),
                    .peer = "find, and 16 bytes of each",
                    .peerMeasured = median(others),
                    .timesPeer = 1.5});
}
