#include "app/supplier.h"

#include "base/text.h"

namespace app {

std::optional<Supplier> findSupplier(const std::vector<Supplier>& listed, std::string_view name) {
    const auto find = [&](auto member) -> std::optional<Supplier> {
        for (const auto& supplier : listed)
            if (base::equalIgnoringCase(base::trim(supplier.*member), base::trim(name)))
                return supplier;
        return std::nullopt;
    };
    const auto byFolder = find(&Supplier::folderName);
    return byFolder ? byFolder : find(&Supplier::identifier);
}

}
