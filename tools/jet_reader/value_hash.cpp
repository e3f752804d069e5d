#include "value_hash.h"

#include <openssl/evp.h>

#include <algorithm>
#include <new>

std::vector<unsigned char> hashOfValue(Bytes value) {
    const auto last = std::find_if(value.rbegin(), value.rend(), [](unsigned char byte) { return byte != 0; });
    const size_t length = size_t(value.rend() - last);
    constexpr size_t lengthBytes = 8, hashBytes = 32, byteBits = 8;
    std::vector<unsigned char> hash(lengthBytes + hashBytes);
    for (size_t i = 0; i < lengthBytes; ++i) hash[i] = static_cast<unsigned char>(uint64_t{length} >> byteBits * i);
    if (EVP_Digest(value.data(), length, hash.data() + lengthBytes, nullptr, EVP_sha256(), nullptr) != 1)
        throw std::bad_alloc();
    return hash;
}
