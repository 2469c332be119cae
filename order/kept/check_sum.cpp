#include "order/kept/check_sum.h"

#include <array>
#include <cstddef>

namespace order {
namespace {

constexpr auto table = [] {
    std::array<std::uint32_t, 256> sums{};
    for (std::uint32_t byte = 0; byte < sums.size(); ++byte) {
        constexpr std::uint32_t polynomial = 0xEDB88320;
        auto sum = byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1U) ^ ((sum & 1U) * polynomial);
        sums[byte] = sum;
    }
    return sums;
}();

}

std::uint32_t checkSum(std::uint32_t before, std::string_view bytes) {
    auto sum = ~before;
    for (const char byte : bytes)
        sum = (sum >> 8U) ^ table[(sum ^ static_cast<unsigned char>(byte)) & 0xFFU];
    return ~sum;
}

}
