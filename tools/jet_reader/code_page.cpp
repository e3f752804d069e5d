#include "code_page.h"

namespace {

constexpr int gbk = 936;
constexpr int western = 1252;

// The characters of daily use stand in the first rows of the table, marks and wide letters before them.
bool isCommon(unsigned char lead, unsigned char trail) {
    const bool isMark = lead >= 0xA1 && lead <= 0xA3;
    const bool isDaily = lead >= 0xB0 && lead <= 0xD7;
    return trail >= 0xA1 && (isMark || isDaily);
}

bool makesCharacter(unsigned char lead, unsigned char trail) {
    return lead != 0x80 && lead != 0xFF && trail >= 0x40 && trail != 0x7F && trail != 0xFF;
}

}  // namespace

void CodePageSurvey::add(Bytes text) {
    for (size_t at = 0; at < text.size(); ++at) {
        const unsigned char lead = text[at];
        if (lead < 0x80) continue;
        if (++at == text.size() || !makesCharacter(lead, text[at])) {
            ++faults_;
            return;
        }
        ++characters_;
        common_ += isCommon(lead, text[at]) ? 1 : 0;
    }
}

int CodePageSurvey::codePage() const {
    const bool isGbk = characters_ > 0 && faults_ * 50 <= characters_;
    return isGbk && common_ * 3 >= characters_ * 2 ? gbk : western;
}
