#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"
#include "publish/file_names.h"

#include <functional>
#include <string_view>

namespace publish {

/// Where an entry's field stands; the name is that of the field: "code", "price".
using PlaceOf = std::function<Place(std::string_view field)>;

/// What of a product's or group's own record the data files cannot hold, or the viewer would not show well.
/// Pictures are looked for among the files. An entry without errors can be written whole, with nothing cut.
void checkEntry(const Product& entry, const FileNames& files, const PlaceOf& placeOf, Complaints& complaints);

/// The same of what only products have: price, tax and a description.
void checkProduct(const Product& product, const PlaceOf& placeOf, Complaints& complaints);

/// The tree of groups: names, depth, number of entries. Headers and products are not looked at.
void checkGroups(const Group& contents, Complaints& complaints);

void checkParameters(const catalog::ParameterValues& values, Complaints& complaints);

}
