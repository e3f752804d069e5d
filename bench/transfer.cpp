// Times how pictures leave an album, against a plain copy of files of the same length. Run by hand:
// bench_transfer [pictures] [folder]

#include "../tests/support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/file_transfer.h"
#include "catalogue/runs/table_transfer.h"
#include "filling.h"
#include "platform/base/error.h"
#include "table.h"
#include "timing.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype pictureBytesCount = 4000000;
constexpr int rounds = 5;

QStringList makeAlbum(int count) {
    QByteArray picture = pictureBytes({400, 300}, Qt::darkGreen);
    picture.append(QByteArray(pictureBytesCount - picture.size(), 'x'));
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    // Every seventh has two codes, with which its file's name could be that of another one: these stay.
    QStringList numbers;
    int last = 0;
    while (numbers.size() < count)
        if (++last % 7 != 0) numbers << QString::number(last);
    fillAlbum(mekTp::catalogue, u"tc01"_s, last, [&](int) { return picture; });
    return numbers;
}

void requireDone(const RunReport& report) {
    for (const RunItem& item : report.items)
        if (item.fate != Fate::taken) throw Error(item.reason);
}

void requireRun(const QString& program, const QStringList& arguments) {
    if (QProcess::execute(program, arguments) != 0) throw Error(u"“%1”没有运行成功"_s.arg(program));
}

FieldMapping wholeMapping() {
    FieldMapping mapping;
    for (const QString& field : {u"序号"_s, u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s, u"图片"_s, u"备注"_s})
        mapping.push_back({field, field});
    return mapping;
}

/// A folder for one round, made and removed outside of the time.
class Round {
  public:
    explicit Round(const QString& parent) : folder_(parent + u"/transfer-XXXXXX"_s) {}
    QString path() const { return folder_.path(); }

  private:
    QTemporaryDir folder_;
};

void compare(int count, const QString& parent) {
    const SampleCatalogue catalogue;
    const QStringList numbers = makeAlbum(count);
    const Round files(parent);
    RunWatch unwatched;
    requireDone(transferToFiles(mekTp::catalogue, u"tc01"_s, numbers, files.path(), unwatched));

    // In turn, so that other work of the machine slows all of them alike.
    std::vector<double> plain, folder, table;
    for (int i = 0; i < rounds; ++i) {
        {
            const Round round(parent);
            plain.push_back(milliseconds([&] {
                requireRun(u"cp"_s, {u"-r"_s, files.path(), round.path() + u"/copy"_s});
                requireRun(u"sync"_s, {});
            }));
        }
        {
            const Round round(parent);
            folder.push_back(milliseconds(
                [&] { requireDone(transferToFiles(mekTp::catalogue, u"tc01"_s, numbers, round.path(), unwatched)); }));
        }
        {
            const Round round(parent);
            Database other = createDatabase(round.path() + u"/other.mdb"_s);
            other.Execute(createAlbumSql(u"tc01"_s));
            const TransferTarget target{other, u"tc01"_s, wholeMapping()};
            table.push_back(milliseconds(
                [&] { requireDone(transferToTable(mekTp::catalogue, u"tc01"_s, numbers, target, false, unwatched)); }));
        }
    }
    const std::string these = std::to_string(count) + " pictures of 4 MB";
    const auto tell = [&](const char* where, const std::vector<double>& times) {
        row("transfer", {.what = "take " + these + " " + where,
                         .measured = median(times),
                         .peer = "cp and sync of such files",
                         .peerMeasured = median(plain)});
    };
    tell("out to a folder", folder);
    tell("to another catalogue", table);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    try {
        compare(argc > 1 ? std::max(1, std::atoi(argv[1])) : 200,
                argc > 2 ? QString::fromLocal8Bit(argv[2]) : QDir::tempPath());
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
