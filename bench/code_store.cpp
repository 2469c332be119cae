#include "bench/code_store.h"

#include "catalog/catalog.h"

#include <cstring>
#include <lmdb.h>
#include <stdexcept>
#include <string>

namespace bench {
namespace {

constexpr std::size_t mapSize = std::size_t{1} << 30U;

void check(int result) {
    if (result != MDB_SUCCESS)
        throw std::runtime_error(mdb_strerror(result));
}

// LMDB takes keys and values to read as it takes those to write.
MDB_val value(const void* bytes, std::size_t size) {
    return {size, const_cast<void*>(bytes)};
}

void fill(MDB_txn* transaction, MDB_dbi table, const std::filesystem::path& index) {
    const catalog::Table<catalog::IndexRecord> entries(index);
    for (std::int32_t number = 1; number <= entries.count(); ++number) {
        const auto entry = entries.at(number);
        const auto product = entry.product();
        auto key = value(entry.key().data(), entry.key().size());
        auto data = value(&product, sizeof product);
        check(mdb_put(transaction, table, &key, &data, MDB_APPEND));
    }
}

}

struct CodeStore::Store {
    MDB_env* environment = nullptr;
    MDB_txn* transaction = nullptr;
    MDB_dbi table = 0;
};

CodeStore::CodeStore(const std::filesystem::path& catalogFolder) : m_store(std::make_unique<Store>()) {
    const auto path = catalogFolder / "codes.mdb";
    std::filesystem::remove(path);
    check(mdb_env_create(&m_store->environment));
    check(mdb_env_set_mapsize(m_store->environment, mapSize));
    check(mdb_env_open(m_store->environment, path.string().c_str(), MDB_NOSUBDIR | MDB_NOSYNC, 0600));
    check(mdb_txn_begin(m_store->environment, nullptr, 0, &m_store->transaction));
    check(mdb_dbi_open(m_store->transaction, nullptr, 0, &m_store->table));
    fill(m_store->transaction, m_store->table, catalogFolder / catalog::indexFile);
    check(mdb_txn_commit(m_store->transaction));
    check(mdb_txn_begin(m_store->environment, nullptr, MDB_RDONLY, &m_store->transaction));
}

CodeStore::~CodeStore() {
    mdb_txn_abort(m_store->transaction);
    mdb_env_close(m_store->environment);
}

std::int32_t CodeStore::find(std::string_view code) const {
    const auto padded = catalog::indexKey(code);
    auto key = value(padded.data(), padded.size());
    MDB_val data{};
    if (mdb_get(m_store->transaction, m_store->table, &key, &data) != MDB_SUCCESS)
        return 0;
    std::int32_t product = 0;
    std::memcpy(&product, data.mv_data, sizeof product);
    return product;
}

}
