#pragma once

#include "order/kept/kept_orders.h"

namespace order {

/// Where orders go that have left.
class OrderKeeper {
public:
    virtual ~OrderKeeper() = default;

    /// Returns at once and throws nothing: an order that cannot be kept has left all the same.
    virtual void left(KeptOrder order) = 0;
};

}
