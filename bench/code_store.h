#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

namespace bench {

/// The yardstick for finding a code: the same keys and record numbers in an LMDB store.
class CodeStore {
public:
    /// Made from the catalogue's product index, beside it.
    explicit CodeStore(const std::filesystem::path& catalogFolder);
    ~CodeStore();
    CodeStore(const CodeStore&) = delete;
    CodeStore& operator=(const CodeStore&) = delete;

    /// The record number, 0 where the code is not there. All look-ups share one reading transaction.
    [[nodiscard]] std::int32_t find(std::string_view code) const;

private:
    struct Store;
    std::unique_ptr<Store> m_store;
};

}
