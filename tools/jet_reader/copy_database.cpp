#include "copy_database.h"

#include "code_page.h"
#include "copy_writer.h"
#include "helper/limits.h"
#include "jet_values.h"

namespace {

/// Damage costs what it holds. All other failures end the reading.
bool isDamage(const JetFailure& failure) {
    return failure.outcome == JetOutcome::damaged || failure.outcome == JetOutcome::incomplete;
}

/// What is damaged says nothing; the copying tells it.
void surveyTable(JetFile& file, const TablePlace& place, CodePageSurvey& survey) {
    try {
        JetTable table(file, place.page);
        for (const JetColumn& column : table.columns()) survey.addName(column.nameBytes);
        while (table.next()) {
            for (size_t i = 0; i < table.columns().size(); ++i) {
                try {
                    survey.add(table.textBytes(i));
                } catch (const JetFailure&) {
                    continue;
                }
            }
            tellProgress(int(JetOutcome::wrongCall));
        }
    } catch (const JetFailure&) {
        return;
    }
}

bool hasDoubtfulHeader(const JetFile& file) {
    constexpr int whatAllFilesSay = 1252;
    return !file.isJet4() && file.codePage() == whatAllFilesSay;
}

CodePageSurvey surveyOf(JetFile& file) {
    CodePageSurvey survey;
    for (const TablePlace& place : userTables(file).tables) {
        survey.addName(place.nameBytes);
        surveyTable(file, place, survey);
    }
    return survey;
}

/// Whether there was anything of it to copy.
bool copyTable(JetFile& file, const TablePlace& place, CopyWriter& writer) {
    try {
        JetTable table(file, place.page);
        writer.copy(place.name, table);
        return true;
    } catch (const JetFailure& failure) {
        if (!isDamage(failure)) throw;
        writer.note({.kind = "unreadable", .name = place.name});
    } catch (const SQLite::Exception& failure) {
        // Names and columns that make no table.
        if (writer.outcomeOf(failure) != JetOutcome::damaged) throw;
        writer.note({.kind = "unreadable", .name = place.name});
    }
    return false;
}

JetOutcome copyTables(JetFile& file, CopyWriter& writer) {
    try {
        const TableList list = userTables(file);
        if (!list.isWhole) writer.note({.kind = "catalogue"});
        size_t copied = 0;
        for (const TablePlace& place : list.tables) copied += copyTable(file, place, writer) ? 1 : 0;
        const bool isAllLost = copied == 0 && (!list.tables.empty() || !list.isWhole);
        if (isAllLost) return JetOutcome::damaged;
        writer.finish();
        return JetOutcome::done;
    } catch (const SQLite::Exception& failure) {
        return writer.outcomeOf(failure);
    }
}

void noteCodePage(const CodePageSurvey& survey, bool isChosen, CopyWriter& writer) {
    if (isChosen || !survey.isInDoubt()) return;
    for (const auto& text : survey.samples()) {
        writer.note({.kind = "sample",
                     .name = jet3Text(text, CodePageSurvey::gbk),
                     .field = jet3Text(text, CodePageSurvey::western)});
    }
}

}  // namespace

JetOutcome copyDatabase(const std::string& from, const std::string& to, int codePage,
                        CopyWriter::LongValues longValues) {
    try {
        JetFile file(from);
        CodePageSurvey survey;
        const bool isAsked = hasDoubtfulHeader(file);
        if (isAsked) {
            if (codePage == 0) survey = surveyOf(file);
            file.setCodePage(codePage == 0 ? survey.codePage() : codePage);
        }
        CopyWriter writer(to, longValues);
        if (isAsked) writer.note({.kind = "codePage", .number = file.codePage()});
        noteCodePage(survey, codePage != 0, writer);
        return copyTables(file, writer);
    } catch (const JetFailure& failure) {
        return failure.outcome;
    } catch (const SQLite::Exception&) {
        return JetOutcome::diskFull;  // the very first writes
    } catch (const std::bad_alloc&) {
        return JetOutcome::limitExceeded;
    }
}
