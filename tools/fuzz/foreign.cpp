// Databases of another format, read in this process. What the library below does with them is contained by the process
// of the real reader: fuzz.sh tells a crash there from one of ours. What has been read without a complaint has to be
// good.

#include "fuzzing.h"
#include "jet_reader/copy_database.h"
#include "platform/database/records/database.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int enoughRows = 50;
constexpr size_t sizeOfJet4Page = 4096;
constexpr size_t placeOfVersion = 0x14;

void readCopy(const QString& copy) {
    const Database database = OpenDatabase(copy);
    for (const QString& table : database.TableDefs()) {
        Recordset rows = database.OpenRecordset(table);
        for (int i = 0; i < enoughRows && !rows.Eof(); ++i, rows.MoveNext()) {
            for (int column = 0; column < rows.FieldCount(); ++column) rows.Fields(column).Value();
        }
        if (rows.rowCount() > 0) rows.MoveLast();
    }
}

}  // namespace

extern "C" {

size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t largest, unsigned seed) {
    const bool isJet4 = size > placeOfVersion && data[placeOfVersion] == 1;
    return mutatePages(data, size, largest, seed, isJet4 ? sizeOfJet4Page : sizeOfJet4Page / 2);
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString path = scratchFile(u"foreign.mdb"_s, bytesOf(data, size));
    const QString copy = scratchFile(u"copy.db"_s, {});
    if (copyDatabase(path.toStdString(), copy.toStdString()) != JetOutcome::done) return 0;
    expect(goesThrough([&] { readCopy(copy); }), "what has been copied can be read");
    return 0;
}

}  // extern "C"
