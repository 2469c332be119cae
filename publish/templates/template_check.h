#pragma once

#include "publish/complaint.h"
#include "publish/templates/catalog_files.h"

#include <string_view>

namespace publish {

/// Complains of everything in a template's text that the viewer would refuse, drop or show otherwise than it
/// was meant (docs/publishing.md, "What is checked"), with its line. `name` is a file's, in any letter case;
/// one that is no template's is passed over. `files` tells whether a style, picture or page that the text
/// names itself is there. The text may be any bytes; the time grows with its length.
///
/// What is passed without an error the viewer renders without its data-file error procedure, as long as no
/// value has a brace or a row marker in it. Values are `checkPages`' affair.
void checkTemplate(std::string_view name, std::string_view text, const CatalogFiles& files,
                   Complaints& complaints);

}
