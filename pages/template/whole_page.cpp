#include "pages/template/whole_page.h"

#include "pages/template/prepared_template.h"
#include "pages/template/template_text.h"

namespace pages {

std::string wholePage(const std::filesystem::path& folder, std::string_view templateName,
                      const LayoutSizes& sizes, const Fields& fields) {
    const auto file = readTemplate(folder, templateName);
    std::string page;
    PreparedTemplate(file.path, replaceLayoutSizes(file.text, sizes)).render(fields, page);
    return page.append("\r\n");
}

}
