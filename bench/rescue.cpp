// Times what takes the whole pictures out of a damaged catalogue of 1 GB and compares each, beside a copy of the file.
// Run by hand: bench_rescue [rounds [megabytes]]

#include "catalogue/conversion/rescue.h"

#include "bare_store.h"
#include "beside_copy.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/proof_run.h"
#include "filling.h"
#include "platform/database/records/own_values.h"

#include <malloc.h>

#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "rescue";

/// Pages are lost in a third of the file and in two thirds of it. Returns the number of photographs.
int makeDamaged(const QString& path, int megabytes) {
    const QByteArray photo = coded(photograph());
    const auto count = int(qint64(megabytes) * 1'000'000 / photo.size());
    mekTp::openCatalogue();
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, count, [&](int number) {
        QByteArray other = photo;
        return other.replace(other.size() / 2, 5, QByteArray::number(10000 + number));
    });
    OwnValues(mekTp::catalogue).setValue(u"proof.decoded"_s, u"1000000000"_s);
    RunWatch watch;
    proveCatalogue(path, watch);
    mekTp::catalogue = {};
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)) throw Error(file.errorString());
    constexpr qint64 page = 16384;
    for (const int third : {1, 2}) {
        file.seek(file.size() / 3 * third / page * page);
        file.write(QByteArray(page, '\0'));
    }
    return count;
}

void measure(int rounds, int megabytes) {
    const SampleCatalogue sample;
    const QString fresh = sample.file(u"fresh.mdb"_s), damaged = mekTp::cataloguePath();
    QFile::copy(damaged, fresh);
    const int count = makeDamaged(damaged, megabytes);
    malloc_trim(0);
    const QTemporaryDir folder;
    rowsBesideCopy(topic, "take out of a damaged catalogue of " + std::to_string(megabytes) + " MB and compare",
                   damaged, folder.filePath(u"new.mdb"_s), rounds, [&] {
                       RunWatch watch;
                       const RunReport report = rescueCatalogue({damaged, fresh, folder.filePath(u"new.mdb"_s)}, watch);
                       if (!report.cameToEnd || report.verified < count - 2) throw Error(u"没有都取出来"_s);
                   });
}

}  // namespace

int main(int argc, char** argv) {
    return runBesideCopy(argc, argv, measure);
}
