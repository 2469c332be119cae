#include "publish/command/commands.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "publish/command/catalog_build.h"
#include "publish/command/content_check.h"
#include "publish/command/opened_catalog.h"
#include "publish/command/published_version.h"
#include "publish/existing/compare/diff.h"
#include "publish/existing/data_check.h"
#include "publish/existing/export/export.h"
#include "publish/starter/starter.h"
#include "publish/supplier_id.h"

namespace publish {
namespace fs = std::filesystem;

namespace {

std::string shown(const fs::path& path) {
    return base::toUtf8(base::textOf(path));
}

void requireSource(const fs::path& folder) {
    if (kindOf(folder) != OpenedCatalog::Kind::source)
        throw base::FileError(
            base::textOf(folder) +
            " is no source folder; \"tavorine-publish export\" makes one of a zip or of an installed "
            "catalogue.");
}

// The zip's name is the supplier's id, by which customers' programs know the catalogue.
std::string supplierIdFor(const BuildOptions& options, const SourceFolder& source) {
    if (!options.zip.empty())
        return base::textOf(options.zip.stem());
    return source.supplierId.empty() ? base::textOf(options.source.filename()) : source.supplierId;
}

void requireSupplierId(const std::string& id) {
    if (!isSupplierId(id))
        throw base::FileError(
            "\"" + id +
            "\" cannot be a supplier's id, which the zip is named after: letters of the English "
            "alphabet, digits, blanks, \"_\", \"-\" and points. \"Supplier id\" in catalog.ini sets it.");
}

std::string megabytes(std::uintmax_t bytes) {
    const auto tenths = (bytes + 50'000) / 100'000;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

void sayWritten(const fs::path& zip, const BuiltCatalog& built, std::ostream& err) {
    std::error_code error;
    const auto& version = built.source.catalog.parameters.version;
    err << "wrote " << shown(zip) << ": " << counted(built.products, "product", "products") << ", version "
        << (version.empty() ? "none" : base::toUtf8(version)) << ", " << megabytes(fs::file_size(zip, error))
        << '\n';
}

void sayHowTheListWasRead(const std::string& summary, std::ostream& err) {
    if (!summary.empty())
        err << summary << '\n';
}

}

Outcome makeNew(const NewOptions& options, const Streams& streams) {
    const auto folder = meantPath(options.folder);
    Complaints complaints;
    const auto summary = makeSourceFolder(
        folder, {.list = options.list, .supplierName = options.supplierName, .email = options.email},
        complaints);
    report(complaints, {}, streams.err);
    if (holdsError(complaints))
        return Outcome::complaints;
    sayHowTheListWasRead(summary, streams.err);
    streams.err << "made " << shown(folder) << "; write who you are into its " << parametersSource
                << ", put your logo.jpg there, then: tavorine-publish build " << shown(options.folder)
                << '\n';
    return Outcome::done;
}

Outcome build(const BuildOptions& options, const Streams& streams) {
    const auto folder = meantPath(options.source);
    requireSource(folder);
    const WorkFolder work;
    Complaints complaints;
    auto built = buildCatalog(folder, options.further, work.path(), complaints);
    const auto id = supplierIdFor(options, built.source);
    requireSupplierId(id);
    const auto zip = options.zip.empty() ? folder.parent_path() / base::pathOf(id + ".zip") : options.zip;
    if (!options.form.json)
        sayHowTheListWasRead(built.source.listSummary, streams.err);
    const bool stops = isToStop(complaints, options.form);
    if (!stops) {
        if (built.remembersVersion)
            writePublished(folder, {built.source.catalog.parameters.version, built.fingerprint});
        writeCatalogZip(built, work.path(), id, zip, options.longestEdge, complaints);
    }
    report(std::move(complaints), options.form, options.form.json ? streams.out : streams.err);
    if (stops)
        return Outcome::complaints;
    sayWritten(zip, built, streams.err);
    return Outcome::done;
}

Outcome check(const CheckOptions& options, const Streams& streams) {
    Complaints complaints;
    const OpenedCatalog catalog(meantPath(options.place), complaints);
    if (catalog.kind() != OpenedCatalog::Kind::source) {
        checkDataFiles(catalog.folder(), complaints);
        checkContentAndPages(catalog.folder(), catalog.content(), complaints);
    }
    if (!options.form.json)
        sayHowTheListWasRead(catalog.listSummary(), streams.err);
    report(complaints, options.form, streams.out);
    if (complaints.empty() && !options.form.json)
        streams.out << "nothing to complain of\n";
    return isToStop(complaints, options.form) ? Outcome::complaints : Outcome::done;
}

Outcome exportSource(const ExportOptions& options, const Streams& streams) {
    const auto place = meantPath(options.place);
    if (kindOf(place) == OpenedCatalog::Kind::source)
        throw base::FileError(base::textOf(place) + " is a source folder already.");
    Complaints complaints;
    const OpenedCatalog catalog(place, complaints);
    const auto folder = meantPath(options.folder);
    const auto build = [](const fs::path& source, const fs::path& data, Complaints& found) {
        static_cast<void>(buildCatalog(source, {}, data, found));
    };
    for (auto& complaint : exportCatalog(catalog.folder(), supplierOf(catalog.folder()), folder, build))
        complaints.push_back(std::move(complaint));
    for (auto& complaint : complaints)
        complaint.weight = Complaint::Weight::warning; // it is exported as it is
    report(std::move(complaints), {}, streams.err);
    streams.err << "made " << shown(folder)
                << "; \"tavorine-publish build\" makes the same catalogue of it\n";
    return Outcome::done;
}

Outcome showDifference(const DiffOptions& options, const Streams& streams) {
    Complaints ignored; // both are compared as they are; "check" judges them
    OpenedCatalog before(meantPath(options.before), ignored);
    OpenedCatalog after(meantPath(options.after), ignored);
    before.gatherContent();
    after.gatherContent();
    const auto diff = compareCatalogs(before.folder(), after.folder());
    streams.out << (options.json ? jsonOf(diff) + "\n" : textOf(diff));
    return Outcome::done;
}

}
