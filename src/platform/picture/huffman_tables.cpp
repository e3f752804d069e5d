#include "platform/picture/huffman_tables.h"

#include <algorithm>

bool HuffmanCodes::assign(const JHUFF_TBL& table, quint8 largestSymbol) {
    byBits_.fill({});
    std::copy(std::begin(table.huffval), std::end(table.huffval), symbols_.begin());
    int code = 0;
    int count = 0;
    for (int length = 1; length <= longest; ++length) {
        toSymbol_[size_t(length)] = count - code;
        for (int i = 0; i < table.bits[length]; ++i, ++code, ++count) {
            if (count == int(symbols_.size()) || code + 1 >= 1 << length) return false;
            if (symbols_[size_t(count)] > largestSymbol) return false;
            if (length > tableBits) continue;
            const int shift = tableBits - length;
            std::fill_n(byBits_.begin() + (code << shift), 1 << shift, Code{quint8(length), symbols_[size_t(count)]});
        }
        beyond_[size_t(length)] = code;
        code <<= 1;
    }
    return true;
}

HuffmanCodes::Code HuffmanCodes::findLong(quint64 word) const {
    for (int length = tableBits + 1; length <= longest; ++length) {
        const int code = int(word >> (64 - length));
        if (code < beyond_[size_t(length)]) return {quint8(length), symbols_[size_t(code + toSymbol_[size_t(length)])]};
    }
    return {};
}

bool DetailTable::assign(const JHUFF_TBL& table) {
    constexpr quint8 anySymbol = 0xFF;
    if (!codes_.assign(table, anySymbol)) return false;
    constexpr unsigned most = 1 << HuffmanCodes::tableBits;
    for (unsigned index = 0; index < most; ++index) {
        Step sum = single(codes_.findShort(index));
        while (sum.bits < HuffmanCodes::tableBits && sum.places < toEnd) {
            const Step more = single(codes_.findShort((index << sum.bits) & (most - 1)));
            const bool isWhole = more.bits > 0 && sum.bits + more.bits <= HuffmanCodes::tableBits;
            if (!isWhole || (more.places < toEnd && sum.places + more.places >= 64)) break;
            sum = {quint8(sum.bits + more.bits), quint8(sum.places + more.places)};
        }
        several_[index] = sum;
    }
    return true;
}
