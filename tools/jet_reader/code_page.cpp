#include "code_page.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr size_t mostSamples = 5;
constexpr size_t longestSample = 40;  ///< Bytes.

/// 序号, 编号, 大小, 规格, 日期, 图片 and 备注 in GBK.
constexpr std::string_view ourNames[]{"\xD0\xF2\xBA\xC5", "\xB1\xE0\xBA\xC5", "\xB4\xF3\xD0\xA1", "\xB9\xE6\xB8\xF1",
                                      "\xC8\xD5\xC6\xDA", "\xCD\xBC\xC6\xAC", "\xB1\xB8\xD7\xA2"};

ptrdiff_t highBytes(Bytes text) {
    return std::ranges::count_if(text, [](unsigned char byte) { return byte >= 0x80; });
}

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

void CodePageSurvey::addName(Bytes name) {
    const std::string_view letters(reinterpret_cast<const char*>(name.data()), name.size());
    hasOurName_ = hasOurName_ || std::ranges::find(ourNames, letters) != std::end(ourNames);
    add(name);
}

void CodePageSurvey::add(Bytes text) {
    keepSample(text);
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

void CodePageSurvey::keepSample(Bytes text) {
    const std::vector<unsigned char> start(text.begin(),
                                           text.begin() + ptrdiff_t(std::min(text.size(), longestSample)));
    const auto count = highBytes(start);
    if (count == 0 || std::ranges::find(samples_, start) != samples_.end()) return;
    const auto place = std::ranges::find_if(samples_, [&](const auto& other) { return highBytes(other) < count; });
    samples_.insert(place, start);
    if (samples_.size() > mostSamples) samples_.pop_back();
}

bool CodePageSurvey::isNearlyAllGbk() const {
    return characters_ > 0 && faults_ * 50 <= characters_;
}

int CodePageSurvey::codePage() const {
    return hasOurName_ || (isNearlyAllGbk() && common_ * 3 >= characters_ * 2) ? gbk : western;
}

/// With hardly a common character the texts are western ones.
bool CodePageSurvey::isInDoubt() const {
    return codePage() == western && common_ * 4 >= characters_ && common_ > 0;
}
