#pragma once

/// Ended with by a program that could not open windows.
inline constexpr int noWindowsStatus = 69;

/// While it lives, a failure of the toolkit to open windows ends the program with words in Chinese on the terminal, in
/// place of a crash: there is no window to say it in.
class StartFailureWords {
  public:
    StartFailureWords();
    ~StartFailureWords();
    StartFailureWords(const StartFailureWords&) = delete;
    StartFailureWords& operator=(const StartFailureWords&) = delete;
};
