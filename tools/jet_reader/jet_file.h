#pragma once

#include "bytes.h"

#include <memory>
#include <string>
#include <vector>

// The library's header includes the first of them inside its own C block: it has to be included before.
#include <glib.h>
#include <mdbtools.h>

/// The place of a row in its page, without the marks beside it.
constexpr int rowPlaceMask = 0x1FFF;

/// A Jet database that is open for reading. Everything throws `JetFailure` when the file does not make sense.
///
/// Only those parts of the library are used that can cope with damaged files: single pages, table definitions and the
/// cutting of rows. Its catalogue, its values bound to columns and its long values cannot.
class JetFile {
  public:
    explicit JetFile(const std::string& path);

    MdbHandle* handle() const { return handle_.get(); }
    uint64_t pages() const { return pages_; }
    bool hasPage(uint64_t page) const { return page < pages_; }
    std::string text(Bytes bytes) const;
    bool isJet4() const;

    /// The code page of texts and names of Jet 3: at first what the header says.
    int codePage() const { return codePage_; }
    void setCodePage(int codePage) { codePage_ = codePage; }

    /// The whole of a memo or long-binary value. The row holds its bytes, or their place.
    std::vector<unsigned char> longValue(Bytes inRow) const;

  private:
    struct Close {
        void operator()(MdbHandle* handle) const { mdb_close(handle); }
    };
    bool hasPassword() const;
    /// One row of a page of data; throws `JetFailure` when there is none.
    Bytes pieceAt(uint32_t place) const;

    std::unique_ptr<MdbHandle, Close> handle_;
    std::unique_ptr<MdbHandle, Close> pieces_;  ///< For long values: the page of the row in hand stays where it is.
    uint64_t pages_ = 0;
    int codePage_ = 0;
};
