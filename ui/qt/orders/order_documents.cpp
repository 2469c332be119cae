#include "ui/qt/orders/order_documents.h"

#include "base/code_page.h"
#include "base/text.h"
#include "catalog/program_folders.h"
#include "pages/browse/page_files.h"
#include "ui/qt/orders/kept_texts.h"
#include "ui/qt/print/order_title.h"
#include "ui/qt/widgets/qt_text.h"

#include <utility>

namespace ui::qt {
namespace {

// Under which documents are shown. Nothing is written there, unless one is so large that the browser takes it
// from a file beside: that is another than the one of the order that may be on its way to paper meanwhile.
constexpr std::string_view addressFile = "Tmp.kept.htm";

// A name from the database is a stranger's.
bool isFolderName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && catalog::canNameSupplier(name) &&
           name.find_first_of(std::string_view("/\\:\0", 4)) == std::string_view::npos;
}

}

OrderDocuments::OrderDocuments(std::string supplier, catalog::Folders folders, platform::MessageBox& messages,
                               Guard& guard, QWidget& window)
    : m_supplier(std::move(supplier)),
      m_folders(std::move(folders)),
      m_messages(messages),
      m_guard(guard),
      m_window(window) {}

void OrderDocuments::preview(const order::KeptOrder& order) {
    start(order, &OrderPrinter::preview);
}

void OrderDocuments::print(const order::KeptOrder& order) {
    start(order, &OrderPrinter::print);
}

OrderPrinter* OrderDocuments::busyPrinter() const {
    return m_printer && m_printer->busy() ? m_printer.get() : nullptr;
}

void OrderDocuments::start(const order::KeptOrder& order, Start begin) {
    if (auto* busy = busyPrinter())
        return busy->showBusy();
    const auto folders = foldersOf(order.supplier);
    const auto address = folders.UserFolder / addressFile;
    const pages::PageFiles files({folders.DataFolder, address, folders.ProgramFolder});
    if (!m_printer)
        m_printer = std::make_unique<OrderPrinter>(files, m_messages, m_guard, m_window);
    m_printer->confineTo(files);
    (*m_printer.*begin)(address, documentPage(order.document), orderTitle(toQt(order.contents.orderNumber)));
}

catalog::Folders OrderDocuments::foldersOf(std::string_view supplier) const {
    if (base::equalIgnoringCase(supplier, m_supplier))
        return m_folders;
    std::error_code ignored;
    const auto folder = m_folders.ProgramFolder / base::pathOf(isFolderName(supplier) ? supplier : "");
    if (folder.has_filename() && std::filesystem::is_directory(folder, ignored))
        return {m_folders.ProgramFolder, folder, folder};
    return {m_folders.ProgramFolder, {}, m_folders.UserFolder};
}

}
