#pragma once

#include "bytes.h"

#include <memory>
#include <string>
#include <vector>

// The library's header needs the first of them to stand outside its own C block.
#include <glib.h>
#include <mdbtools.h>

/// A Jet database that is open for reading. Everything throws `JetFailure` when the file does not make sense.
///
/// Of the library only what has stood up to damaged files is used: single pages, table definitions and the cutting of
/// rows. Its own catalogue, its values bound to columns and its long values run away on them.
class JetFile {
  public:
    explicit JetFile(const std::string& path);

    MdbHandle* handle() const { return handle_.get(); }
    bool hasPage(uint64_t page) const { return page < pages_; }
    std::string text(Bytes bytes) const;
    /// A name that the library has read.
    std::string name(const std::string& read) const;
    bool isJet4() const;

    /// The whole of a memo or long-binary value, from what its row holds of it: the bytes themselves, or where they
    /// lie.
    std::vector<unsigned char> longValue(Bytes inRow) const;

  private:
    struct Close {
        void operator()(MdbHandle* handle) const { mdb_close(handle); }
    };
    bool hasPassword() const;

    std::unique_ptr<MdbHandle, Close> handle_;
    uint64_t pages_ = 0;
};
