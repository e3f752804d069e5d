#pragma once

#include "bytes.h"

/// Finds the code page of the texts in a Jet 3 file. The header names 1252 in nearly all files, whatever they hold, and
/// the bytes of Chinese texts nearly always make some text of 1252 too. So the texts themselves are looked at: names of
/// tables and columns, and values, but never long binary ones.
class CodePageSurvey {
  public:
    void add(Bytes text);

    /// GBK's number, 936, when the texts beyond ASCII are GBK, but for a few that were cut or are of another kind, and
    /// most of their characters are common ones. 1252 otherwise: two letters with accents seldom follow one another
    /// there.
    int codePage() const;

  private:
    size_t faults_ = 0;      ///< Texts with bytes that make no character.
    size_t characters_ = 0;  ///< Of two bytes.
    size_t common_ = 0;
};
