// Reads a Jet database into an empty SQLite file: lunq-jet DATABASE FILE [CODE-PAGE [hashes]]. The exit code is a
// JetOutcome.

#include "copy_database.h"
#include "helper/limits.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace {

/// Texts take more room in the copy than in a compressed database, and each table some of its own.
uint64_t largestCopyOf(const std::string& path) {
    constexpr uint64_t margin = uint64_t{64} << 20;
    std::error_code failure;
    const auto size = std::filesystem::file_size(path, failure);
    return failure ? margin : size * 4 + margin;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3 || argc > 5) return int(JetOutcome::wrongCall);
    clearenv();  // the library would take character sets and folders from it
    limitThisProcess({.outputBytes = largestCopyOf(argv[1]),
                      .memoryBytes = uint64_t{512} << 20,
                      .seconds = 30,
                      .exitCode = int(JetOutcome::limitExceeded)});
    const int codePage = argc > 3 ? std::atoi(argv[3]) : 0;
    const bool wantsHashes = argc > 4 && std::string_view(argv[4]) == "hashes";
    return int(copyDatabase(argv[1], argv[2], codePage,
                            wantsHashes ? CopyWriter::LongValues::hashes : CopyWriter::LongValues::whole));
}
