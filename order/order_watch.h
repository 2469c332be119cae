#pragma once

#include <cstdint>

namespace order {

/// Hears what becomes of the order's lines, in the order in which it happens. It is called for every quantity
/// that is typed, so it does next to nothing then, and it does not throw.
class OrderWatch {
public:
    virtual ~OrderWatch() = default;

    /// The product's record has this quantity from now on; 0 takes it off.
    virtual void quantityChanged(std::int32_t product, float quantity) = 0;

    /// There are no lines any more.
    virtual void cleared() = 0;
};

}
