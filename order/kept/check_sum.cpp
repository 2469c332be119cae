#include "order/kept/check_sum.h"

#include <zlib.h>

namespace order {

std::uint32_t checkSum(std::uint32_t before, std::string_view bytes) {
    if (bytes.empty())
        return before;
    return static_cast<std::uint32_t>(
        crc32_z(before, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

}
