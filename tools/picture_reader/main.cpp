// Decodes a picture in a process of its own: lunq-FORMAT INPUT OUTPUT, both numbers of open files. The output is a file
// in memory, filled as DecodedPicture says. The exit code is a ReadingOutcome.

#include "helper/limits.h"
#include "picture_reader/reading.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <new>

namespace {

constexpr ProcessLimits limits{.outputBytes = DecodedPicture::mostBytes,
                               .memoryBytes = uint64_t{3} << 30,
                               .seconds = 60,
                               .exitCode = int(ReadingOutcome::limitExceeded)};

ReadingOutcome decodeFile(int input, int file) {
    struct stat status {};
    if (fstat(input, &status) != 0 || status.st_size <= 0) return ReadingOutcome::damaged;
    const auto length = size_t(status.st_size);
    void* const memory = mmap(nullptr, length, PROT_READ, MAP_PRIVATE, input, 0);
    if (memory == MAP_FAILED) return ReadingOutcome::limitExceeded;
    try {
        Output output(file);
        DECODE({static_cast<const unsigned char*>(memory), length}, output);
        return ReadingOutcome::done;
    } catch (const ReadingFailure& failure) {
        return failure.outcome;
    } catch (const std::bad_alloc&) {
        return ReadingOutcome::limitExceeded;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return int(ReadingOutcome::wrongCall);
    clearenv();  // a library would take folders of plug-ins from it
    limitThisProcess(limits);
    mallopt(M_MMAP_THRESHOLD, 128 << 10);  // gives large blocks back when they are freed: a third of the memory
    // Ends at once: a library that was led astray need not clean up.
    _exit(int(decodeFile(std::atoi(argv[1]), std::atoi(argv[2]))));
}
