#include "jet_file.h"

#include "helper/limits.h"
#include "jet_failure.h"
#include "jet_values.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>

namespace {

constexpr size_t largestValue = size_t{64} << 20;
constexpr size_t headerSize = 0x98;

/// The version in the header. The library is asked only for files whose beginning it knows.
int versionOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw JetFailure{JetOutcome::unreadable};
    std::string header(headerSize, '\0');
    if (!file.read(header.data(), std::streamsize(header.size()))) throw JetFailure{JetOutcome::incomplete};
    if (header.compare(4, 15, "Standard Jet DB") != 0) throw JetFailure{JetOutcome::unknownVersion};
    return static_cast<unsigned char>(header[0x14]);
}

uint64_t sizeOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) throw JetFailure{JetOutcome::unreadable};
    return uint64_t(status.st_size);
}

}  // namespace

JetFile::JetFile(const std::string& path) {
    const int version = versionOf(path);
    if (version != MDB_VER_JET3 && version != MDB_VER_JET4) throw JetFailure{JetOutcome::unknownVersion};
    const uint64_t pageSize = version == MDB_VER_JET4 ? 4096 : 2048;
    const uint64_t size = sizeOf(path);
    pages_ = size / pageSize;
    constexpr uint64_t fewestPages = 3;  // without the third there is no catalogue
    if (size % pageSize != 0 || pages_ < fewestPages) throw JetFailure{JetOutcome::incomplete};

    // Lets the names of columns through byte by byte: with the header's code page, which need not be that of the texts,
    // the library would lose them.
    setenv("MDB_JET3_CHARSET", "ISO-8859-1", 1);
    handle_.reset(mdb_open(path.c_str(), MDB_NOFLAGS));
    pieces_.reset(mdb_open(path.c_str(), MDB_NOFLAGS));
    if (!handle_ || !pieces_ || uint64_t(handle_->fmt->pg_size) != pageSize) throw JetFailure{JetOutcome::damaged};
    codePage_ = handle_->f->code_page;
    if (hasPassword()) throw JetFailure{JetOutcome::password};
}

bool JetFile::isJet4() const {
    return handle_->f->jet_version == MDB_VER_JET4;
}

/// Looks into the header, which the library has just read and decoded.
bool JetFile::hasPassword() const {
    const Bytes header(handle_->pg_buf, headerSize);
    constexpr size_t place = 0x42;
    if (!isJet4()) return std::ranges::any_of(header.subspan(place, 20), [](unsigned char byte) { return byte != 0; });

    const auto created = numberAt<double>(header, 0x72);
    if (!(std::abs(created) < 1e9)) throw JetFailure{JetOutcome::damaged};
    const auto mask = int32_t(created);
    for (size_t at = 0; at < 40; at += sizeof mask) {
        if (numberAt<int32_t>(header, place + at) != mask) return true;
    }
    return false;
}

std::string JetFile::text(Bytes bytes) const {
    return isJet4() ? jet4Text(bytes) : jet3Text(bytes, codePage_);
}

/// A page that is none of data, such as one of zeros, has rows as well, by chance.
Bytes JetFile::pieceAt(uint32_t place) const {
    constexpr int pageBits = 8;
    if (!hasPage(place >> pageBits)) throw JetFailure{JetOutcome::incomplete};
    MdbHandle* pages = pieces_.get();
    if (!mdb_read_pg(pages, place >> pageBits)) {
        pages->cur_pg = 0;  // otherwise the library takes the page for read the next time
        throw JetFailure{JetOutcome::damaged};
    }
    int start = 0;
    size_t size = 0;
    const bool isThere = *pages->pg_buf == MDB_PAGE_DATA && mdb_find_row(pages, int(place & 0xFF), &start, &size) == 0;
    start &= rowPlaceMask;
    if (!isThere || size_t(start) + size > size_t(pages->fmt->pg_size)) throw JetFailure{JetOutcome::damaged};
    return {pages->pg_buf + start, size};
}

std::vector<unsigned char> JetFile::longValue(Bytes inRow) const {
    if (inRow.size() < MDB_MEMO_OVERHEAD) return {};
    constexpr uint32_t inline_ = 0x80000000;
    constexpr uint32_t onePiece = 0x40000000;
    const auto lengthAndKind = numberAt<uint32_t>(inRow, 0);
    const size_t length = lengthAndKind & ~(inline_ | onePiece);
    if (lengthAndKind & inline_) {
        const Bytes bytes = inRow.subspan(MDB_MEMO_OVERHEAD);
        const Bytes value = bytes.first(std::min(length, bytes.size()));
        return {value.begin(), value.end()};
    }
    if (length > pages_ * size_t(handle_->fmt->pg_size)) throw JetFailure{JetOutcome::damaged};
    if (length > largestValue) throw JetFailure{JetOutcome::limitExceeded};

    std::vector<unsigned char> value;
    value.reserve(length);
    auto place = numberAt<uint32_t>(inRow, 4);
    while (value.size() < length && place != 0) {
        Bytes piece = pieceAt(place);
        if (lengthAndKind & onePiece) {
            place = 0;
        } else {
            if (piece.size() <= sizeof place) throw JetFailure{JetOutcome::damaged};
            place = numberAt<uint32_t>(piece, 0);
            piece = piece.subspan(sizeof place);
        }
        value.insert(value.end(), piece.begin(), piece.end());
        tellProgress(int(JetOutcome::wrongCall));
    }
    if (value.size() < length) throw JetFailure{JetOutcome::damaged};
    value.resize(length);
    return value;
}
