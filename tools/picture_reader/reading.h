#pragma once

#include "platform/picture/formats/decoded_layout.h"

#include <span>

using Bytes = std::span<const unsigned char>;

/// Ends a reading.
struct ReadingFailure {
    ReadingOutcome outcome;
};

/// Where the decoded picture goes: a file in memory.
class Output {
  public:
    explicit Output(int file) : file_(file) {}
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// What the file says beside the pixels. Those that are too large are left out: the picture does without.
    void setProfile(Bytes bytes) { profile_ = kept(bytes); }
    void setExif(Bytes bytes) { exif_ = kept(bytes); }
    void setXmp(Bytes bytes) { xmp_ = kept(bytes); }

    /// Refuses sides or an area that is too large. To be called as soon as they are known.
    static void check(uint64_t width, uint64_t height);

    /// Writes all but the pixels, once; returns the place of these, all 0. It is there as long as this object.
    unsigned char* begin(DecodedPicture picture);

  private:
    static Bytes kept(Bytes bytes) { return bytes.size() <= DecodedPicture::mostBeside ? bytes : Bytes(); }

    int file_;
    Bytes profile_, exif_, xmp_;
    std::span<unsigned char> memory_;  ///< All of the file.
};

// Each decodes the bytes of a file in its format, and throws `ReadingFailure` where that cannot be done.

void decodeHeif(Bytes file, Output& output);  ///< HEIC and AVIF.
void decodeTiff(Bytes file, Output& output);
void decodeWebp(Bytes file, Output& output);
