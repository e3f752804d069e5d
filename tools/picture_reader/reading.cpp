#include "picture_reader/reading.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

Output::~Output() {
    if (!memory_.empty()) munmap(memory_.data(), memory_.size());
}

void Output::check(uint64_t width, uint64_t height) {
    if (width == 0 || height == 0) throw ReadingFailure{ReadingOutcome::damaged};
    const bool isTooLong = std::max(width, height) > DecodedPicture::longestSide;
    if (isTooLong || 4 * width * height > DecodedPicture::mostBytes / 2) throw ReadingFailure{ReadingOutcome::tooLarge};
}

unsigned char* Output::begin(DecodedPicture picture) {
    check(picture.width, picture.height);
    picture.profileBytes = uint32_t(profile_.size());
    picture.exifBytes = uint32_t(exif_.size());
    picture.xmpBytes = uint32_t(xmp_.size());
    if (ftruncate(file_, off_t(picture.bytes())) != 0) throw ReadingFailure{ReadingOutcome::limitExceeded};
    void* const memory = mmap(nullptr, picture.bytes(), PROT_READ | PROT_WRITE, MAP_SHARED, file_, 0);
    if (memory == MAP_FAILED) throw ReadingFailure{ReadingOutcome::limitExceeded};
    memory_ = {static_cast<unsigned char*>(memory), picture.bytes()};
    std::memcpy(memory, &picture, sizeof picture);
    unsigned char* next = memory_.data() + sizeof picture;
    for (const Bytes part : {profile_, exif_, xmp_}) next = std::ranges::copy(part, next).out;
    return memory_.data() + picture.pixelsAt();
}
