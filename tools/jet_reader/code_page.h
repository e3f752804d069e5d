#pragma once

#include "bytes.h"

#include <vector>

/// Finds the code page of the texts in a Jet 3 file. The header names 1252 in nearly all files, whatever they hold, and
/// the bytes of Chinese texts nearly always make some text of 1252 too. So the texts themselves are looked at: names of
/// tables and columns, and values, but never long binary ones.
class CodePageSurvey {
  public:
    static constexpr int gbk = 936;
    static constexpr int western = 1252;

    void add(Bytes text);
    /// A name of a table or column: those that our own albums give to theirs say much.
    void addName(Bytes name);

    /// GBK's number, 936, when a column has a name of ours, or when the texts beyond ASCII are GBK, but for a few that
    /// were cut or are of another kind, and most of their characters are common ones. 1252 otherwise: two letters with
    /// accents seldom follow one another there.
    int codePage() const;
    /// Whether a person should have a look: the texts could be either.
    bool isInDoubt() const;
    /// Some texts beyond ASCII, or their beginnings, those with most such bytes first.
    const std::vector<std::vector<unsigned char>>& samples() const { return samples_; }

  private:
    bool isNearlyAllGbk() const;
    void keepSample(Bytes text);

    size_t faults_ = 0;      ///< Texts with bytes that make no character.
    size_t characters_ = 0;  ///< Of two bytes.
    size_t common_ = 0;
    bool hasOurName_ = false;
    std::vector<std::vector<unsigned char>> samples_;
};
