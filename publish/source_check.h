#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"

namespace publish {

/// The files of a source folder that complaints name.
inline constexpr const char* parametersSource = "catalog.ini";
inline constexpr const char* productsSource = "products.csv";
inline constexpr const char* groupsSource = "groups.csv";

/// Everything in the catalogue that the data files cannot hold or the viewer would not show well.
/// A source without errors can be written whole, with nothing cut.
[[nodiscard]] Complaints checkSource(const CatalogSource& source);

}
