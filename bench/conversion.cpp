// Times the conversion of an old catalogue of 1 GB, with the comparing of all its pictures, beside a copy of the file.
// Run by hand: bench_conversion [rounds [megabytes]]

#include "catalogue/conversion/conversion.h"

#include "bare_store.h"
#include "beside_copy.h"
#include "catalogue/mektp.h"
#include "jet_maker/old_catalogue.h"
#include "platform/base/error.h"

#include <malloc.h>

#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "conversion";

/// Photographs of that many megabytes in all; no two are alike.
void writeOldCatalogue(const QString& path, int megabytes) {
    const QByteArray photo = coded(photograph());
    const auto count = qsizetype(megabytes) * 1'000'000 / photo.size();
    jet::OldCatalogue old{.albums = {{u"tc01"_s, u"旅行"_s}}, .buttonPicture = pictureBytes({100, 75}, Qt::green)};
    for (qsizetype i = 0; i < count; ++i) {
        QByteArray other = photo;
        other.replace(other.size() / 2, 4, QByteArray::number(1000 + i));
        old.albums[0].pictures << jet::withTail(other);
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(jet::database(jet::oldCatalogueTables(old))) < 0)
        throw Error(u"“%1”不能写入"_s.arg(path));
}

void measure(int rounds, int megabytes) {
    const SampleCatalogue fresh;
    mekTp::catalogue = {};
    const QTemporaryDir folder;
    const QString old = folder.filePath(u"lunq.mdb"_s), made = folder.filePath(u"new.mdb"_s);
    writeOldCatalogue(old, megabytes);
    malloc_trim(0);
    rowsBesideCopy(topic, "convert and compare a catalogue of " + std::to_string(megabytes) + " MB", old, made, rounds,
                   [&] {
                       RunWatch watch;
                       const RunReport report = convertCatalogue({old, fresh.file(u"lunq.mdb"_s), made}, watch);
                       if (!report.cameToEnd) throw Error(report.failure);
                   });
}

}  // namespace

int main(int argc, char** argv) {
    return runBesideCopy(argc, argv, measure);
}
