#include "order/kept/kept_database.h"

#include "base/code_page.h"

#include <system_error>
#include <utility>

namespace order {
namespace fs = std::filesystem;

namespace {

constexpr std::int64_t formVersion = 1;

// Marks the file as ours: "TVRN".
constexpr std::int64_t ours = 0x5456524E;

constexpr const char* tables = R"sql(
create table orders(
    id integer primary key autoincrement,
    supplier text not null collate nocase,
    catalogue text not null,
    left_at text not null,
    departure text not null,
    destination text not null,
    number text not null,
    order_date text not null,
    delivery_date text not null,
    comment text not null,
    business text not null,
    attention text not null,
    street text not null,
    city text not null,
    state text not null,
    zip text not null,
    country text not null,
    phone text not null,
    asked_for_exemption integer not null,
    tax_exempt integer not null,
    line_count integer not null,
    total text not null,
    total_cents integer,
    tax_total text not null,
    tax_cents integer);
create index orders_by_time on orders(left_at);
create index orders_by_supplier on orders(supplier, left_at);
create table lines(
    order_id integer not null references orders(id) on delete cascade,
    position integer not null,
    quantity text not null,
    code text not null,
    description text not null,
    other text not null,
    tax_rate text not null,
    price text not null,
    tax text not null,
    amount text not null,
    unit_price real not null,
    primary key(order_id, position)) without rowid;
create table documents(
    order_id integer primary key references orders(id) on delete cascade,
    is_html integer not null,
    text text not null);
create virtual table order_words using fts5(
    words, tokenize = "unicode61 remove_diacritics 2", prefix = '1');
create table ordered_codes(
    supplier text not null collate nocase,
    code text not null,
    primary key(supplier, code)) without rowid;
create table addresses(
    name_key text primary key,
    name text not null,
    business text not null,
    attention text not null,
    street text not null,
    city text not null,
    state text not null,
    zip text not null,
    country text not null,
    phone text not null) without rowid;
pragma application_id = 1414943310;
pragma user_version = 1;
)sql";
static_assert(ours == 1414943310 && formVersion == 1, "the statements above name both");

// Fails where a table is not there.
constexpr std::string_view allTables =
    "select 1 from orders, lines, documents, order_words, ordered_codes, addresses limit 0";

bool isEmpty(const SqlDatabase& sql) {
    return sql.number("select count(*) from sqlite_master") == 0;
}

// Readers and the one writer do not wait for each other in this mode, which the file keeps; some file systems
// do not have it.
void chooseMode(const SqlDatabase& sql) {
    try {
        sql.run("pragma journal_mode = wal");
    } catch (const SqlError& error) {
        if (error.kind() != SqlError::Kind::locked)
            throw;
    }
}

void makeTables(const SqlDatabase& sql) {
    chooseMode(sql);
    SqlTransaction transaction(sql);
    if (isEmpty(sql)) // another program may have been faster
        sql.run(tables);
    transaction.commit();
}

/// A name beside the file under which there is nothing.
fs::path freeName(const fs::path& file) {
    std::error_code ignored;
    for (int number = 1;; ++number) {
        auto name = file.stem();
        name += ".damaged-" + std::to_string(number);
        name += file.extension();
        auto path = file.parent_path() / name;
        if (!fs::exists(path, ignored))
            return path;
    }
}

fs::path with(const fs::path& file, const char* ending) {
    return fs::path(file).concat(ending);
}

std::string sentence(const fs::path& file, SqlError::Kind kind) {
    const auto name = "The file of your kept orders, " + base::textOf(file) + ", ";
    switch (kind) {
    case SqlError::Kind::locked:
        return name + "is in use by another program. Please try again.";
    case SqlError::Kind::notWritable:
        return name + "cannot be used. Please check that the disk is not full and that you may write there.";
    case SqlError::Kind::damaged:
        return name + "is damaged. Please move it to another place; then a new one is begun.";
    case SqlError::Kind::other:
        break;
    }
    return name + "cannot be used: it does not hold what it should. Please move it to another place; then a "
                  "new one is begun.";
}

}

KeptOrders::Database::Database(fs::path path) : file(std::move(path)) {
    std::error_code ignored;
    fs::create_directories(file.parent_path(), ignored);
    try {
        openOrPutAside();
    } catch (const SqlError& error) {
        fail(error);
    }
}

const SqlDatabase& KeptOrders::Database::connection() {
    if (!m_sql)
        openOrPutAside();
    return *m_sql;
}

void KeptOrders::Database::openOrPutAside() {
    try {
        open();
    } catch (const SqlError& error) {
        if (error.kind() != SqlError::Kind::damaged)
            throw;
        putAside();
        open();
    }
}

void KeptOrders::Database::open() {
    constexpr std::chrono::milliseconds patience(150); // somebody is looking at the window
    m_sql.reset();
    m_sql.emplace(file, patience);
    if (m_sql->number("pragma user_version") > formVersion)
        throw KeptOrdersError("Your kept orders in " + base::textOf(file) +
                              " were written by a newer version of this program, which can show them.");
    m_sql->run("pragma synchronous = full; pragma foreign_keys = on;");
    if (isEmpty(*m_sql)) {
        std::error_code ignored;
        fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write,
                        ignored); // nobody else's business
        makeTables(*m_sql);
    }
    if (m_sql->number("pragma application_id") != ours)
        throw SqlError(SqlError::Kind::damaged);
    try {
        static_cast<void>(m_sql->number(allTables));
    } catch (const SqlError& error) {
        throw error.kind() == SqlError::Kind::other ? SqlError(SqlError::Kind::damaged) : error;
    }
}

// Where only the index is damaged it is made again. Another program may have put the file aside already;
// then the new one is whole.
void KeptOrders::Database::recover(const SqlError& error) {
    if (error.kind() != SqlError::Kind::damaged)
        fail(error);
    try {
        openOrPutAside();
        if (auto check = m_sql->prepare("pragma quick_check(1)"); !check.next() || check.text(0) != "ok")
            throw SqlError(SqlError::Kind::damaged);
        m_sql->run("insert into order_words(order_words) values('rebuild')");
    } catch (const SqlError& again) {
        if (again.kind() != SqlError::Kind::damaged)
            fail(again);
        putAside();
        openOrPutAside();
    }
}

void KeptOrders::Database::putAside() {
    m_sql.reset();
    const auto aside = freeName(file);
    std::error_code error;
    fs::rename(file, aside, error);
    if (error)
        throw SqlError(SqlError::Kind::notWritable);
    for (const char* ending : {"-wal", "-shm"}) // they belong to it, and to no other
        fs::rename(with(file, ending), with(aside, ending), error);
    complaint = "The file of your kept orders was damaged. It was put aside as " + base::textOf(aside) +
                ", and a new one was begun.";
}

void KeptOrders::Database::fail(const SqlError& error) const {
    throw KeptOrdersError(sentence(file, error.kind()));
}

std::string addressNames() {
    std::string names;
    for (const auto& column : addressColumns)
        names.append(names.empty() ? "" : ", ").append(column.name);
    return names;
}

std::string addressMarks() {
    std::string marks = "?";
    for (std::size_t i = 1; i < addressColumns.size(); ++i)
        marks += ", ?";
    return marks;
}

std::string storedText(std::string_view text) {
    if (text.find("&#") != std::string_view::npos)
        if (auto shown = base::shownAsUtf8(text); base::fromUtf8(shown) == text)
            return shown;
    return base::toUtf8(text);
}

}
