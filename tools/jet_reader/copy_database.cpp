#include "copy_database.h"

#include "code_page.h"
#include "copy_writer.h"
#include "helper/limits.h"

namespace {

/// What is damaged says nothing; the copying tells it.
void surveyTable(JetFile& file, const TablePlace& place, CodePageSurvey& survey) {
    try {
        JetTable table(file, place.page);
        for (const JetColumn& column : table.columns()) survey.add(column.nameBytes);
        while (table.next()) {
            for (size_t i = 0; i < table.columns().size(); ++i) survey.add(table.textBytes(i));
            tellProgress(int(JetOutcome::wrongCall));
        }
    } catch (const JetFailure&) {
        return;
    }
}

void findCodePage(JetFile& file) {
    constexpr int whatAllFilesSay = 1252;
    if (file.isJet4() || file.codePage() != whatAllFilesSay) return;
    CodePageSurvey survey;
    for (const TablePlace& place : userTables(file)) {
        survey.add(place.nameBytes);
        surveyTable(file, place, survey);
    }
    file.setCodePage(survey.codePage());
}

JetOutcome copyTables(JetFile& file, CopyWriter& writer) {
    try {
        for (const TablePlace& place : userTables(file)) {
            JetTable table(file, place.page);
            writer.copy(place.name, table);
        }
        writer.finish();
        return JetOutcome::done;
    } catch (const SQLite::Exception& failure) {
        return writer.outcomeOf(failure);
    }
}

}  // namespace

JetOutcome copyDatabase(const std::string& from, const std::string& to, CopyWriter::LongValues longValues) {
    try {
        JetFile file(from);
        findCodePage(file);
        CopyWriter writer(to, longValues);
        return copyTables(file, writer);
    } catch (const JetFailure& failure) {
        return failure.outcome;
    } catch (const SQLite::Exception&) {
        return JetOutcome::diskFull;  // the very first writes
    } catch (const std::bad_alloc&) {
        return JetOutcome::limitExceeded;
    }
}
