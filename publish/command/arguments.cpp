#include "base/code_page.h"
#include "base/errors.h"
#include "publish/command/commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <functional>

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr const char* about =
    "Makes the catalogues that customers open with Tavorine, from a supplier's product list.\n\n"
    "  tavorine-publish new ACME --from \"Price list.xlsx\"   begin with your list\n"
    "  tavorine-publish preview ACME --open                 look at the pages\n"
    "  tavorine-publish build ACME                          check everything, write ACME.zip\n\n"
    "Complaints name file, row and column. An error stops a build, a warning does not.";

constexpr const char* ending = "tavorine-publish COMMAND --help says more of each.\n"
                               "Exit codes: 0 done, 1 complaints, 2 the command line makes no sense.";

fs::path pathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

/// The command line, with what it fills in.
class Arguments {
public:
    Arguments() {
        m_app.require_subcommand(1);
        m_app.set_version_flag("--version", "tavorine-publish " TAVORINE_VERSION);
        m_app.footer(ending);
        addNew();
        addBuild();
        addCheck();
        addPreview();
        addExport();
        addDiff();
    }

    CLI::App& app() { return m_app; }

    [[nodiscard]] Outcome run(const Streams& streams) const { return m_command(streams); }

private:
    using Command = std::function<Outcome(const Streams&)>;

    CLI::App* add(const char* name, const char* summary, const char* more, Command command) {
        auto* added = m_app.add_subcommand(name, summary);
        added->footer(more);
        added->callback([this, command = std::move(command)] { m_command = command; });
        return added;
    }

    static void addPath(CLI::App* command, const char* name, fs::path& target, const char* help) {
        command->add_option_function<std::string>(
            name, [&target](const std::string& text) { target = pathOf(text); }, help);
    }

    static void addPlace(CLI::App* command, const char* name, fs::path& target, const char* help) {
        addPath(command, name, target, help);
        command->get_option(name)->required()->type_name("");
    }

    static void addForm(CLI::App* command, ReportForm& form) {
        command->add_flag("--strict", form.strict, "Warnings count as errors");
        addFormat(command, form.json);
    }

    static void addFormat(CLI::App* command, bool& json) {
        command
            ->add_option_function<std::string>(
                "--format", [&json](const std::string& name) { json = name == "json"; },
                "How to answer: text for people, json for programs")
            ->check(CLI::IsMember({"text", "json"}))
            ->option_text("text|json");
    }

    void addNew() {
        auto& options = m_new;
        auto* command = add(
            "new", "Begin a catalogue",
            "Makes FOLDER, which builds at once: parameters with comments (catalog.ini), page templates to\n"
            "be changed, places for your logo and pictures. With --from it holds your own list, and "
            "list.ini\n"
            "says which column was taken for what; correct it there.",
            [&options](const Streams& streams) { return makeNew(options, streams); });
        addPlace(command, "FOLDER", options.folder, "The new folder; its name becomes the supplier's id");
        addPath(command, "--from", options.list,
                "Your product list: .xlsx, .ods, .csv or other delimited text");
        command->get_option("--from")->type_name("LIST");
        command->add_option("--name", options.supplierName, "Your company's name")->type_name("NAME");
        command->add_option("--email", options.email, "Where orders are e-mailed to")->type_name("ADDRESS");
    }

    void addBuild() {
        auto& options = m_build;
        auto* command = add("build", "Check a catalogue and write the zip for customers",
                            "Without --zip the zip is written beside FOLDER, named after the supplier's id. "
                            "It replaces an old one\n"
                            "only when it is complete. The version counts up by itself when anything has "
                            "changed, unless catalog.ini\n"
                            "has one of your own.",
                            [&options](const Streams& streams) { return build(options, streams); });
        addPlace(command, "FOLDER", options.source, "The source folder");
        addPath(command, "--zip", options.zip, "Where to; its name without .zip is the supplier's id");
        command->get_option("--zip")->type_name("ZIP");
        command
            ->add_option_function<std::vector<std::string>>(
                "--with",
                [&options](const std::vector<std::string>& folders) {
                    std::transform(folders.begin(), folders.end(), std::back_inserter(options.further),
                                   pathOf);
                },
                "Further folders whose files go into the zip, pictures for example")
            ->type_name("FOLDER");
        command
            ->add_option_function<int>(
                "--pictures", [&options](int edge) { options.longestEdge = edge; },
                "Scale pictures down so that no edge is longer than this many pixels")
            ->check(CLI::Range(16, 20000))
            ->option_text("PIXELS");
        addForm(command, options.form);
    }

    void addCheck() {
        auto& options = m_check;
        auto* command =
            add("check", "Say what is wrong with a catalogue",
                "Examines a source folder, a zip from anywhere, or the folder of an installed catalogue: "
                "list,\ngroups, pictures, links, templates, and every page as customers would see it.",
                [&options](const Streams& streams) { return check(options, streams); });
        addPlace(command, "PLACE", options.place, "Source folder, zip, or folder of an installed catalogue");
        addForm(command, options.form);
    }

    void addPreview() {
        auto& options = m_preview;
        auto* command = add("preview", "Show a page as customers will see it",
                            "WHAT is the code of a product or group, a record number, or one of: welcome, "
                            "banner, order, mail.\n"
                            "Without it the first page is shown. The page is written to the standard output, "
                            "unless --output\n"
                            "or --open says otherwise.",
                            [&options](const Streams& streams) { return showPreview(options, streams); });
        addPlace(command, "PLACE", options.place, "Source folder, zip, or folder of an installed catalogue");
        command->add_option("WHAT", options.what, "Which page")->type_name("");
        addPath(command, "-o,--output", options.output, "Write the page to this file");
        command->get_option("--output")->type_name("FILE");
        command->add_flag("--open", options.open, "Open it in the browser");
    }

    void addExport() {
        auto& options = m_export;
        auto* command =
            add("export", "Turn a finished catalogue back into a source folder",
                "Building the folder gives the same data files to the byte, whoever made the catalogue.",
                [&options](const Streams& streams) { return exportSource(options, streams); });
        addPlace(command, "PLACE", options.place, "Zip, or folder of an installed catalogue");
        addPlace(command, "FOLDER", options.folder, "The new source folder");
    }

    void addDiff() {
        auto& options = m_diff;
        auto* command =
            add("diff", "Say what customers will see change",
                "Prices up and down, new and gone products, texts, groups, templates. Each of the two may be "
                "a\nsource folder, a zip, or the folder of an installed catalogue.",
                [&options](const Streams& streams) { return showDifference(options, streams); });
        addPlace(command, "OLD", options.before, "What customers have");
        addPlace(command, "NEW", options.after, "What they will get");
        addFormat(command, options.json);
    }

    CLI::App m_app{about, "tavorine-publish"};
    NewOptions m_new;
    BuildOptions m_build;
    CheckOptions m_check;
    PreviewOptions m_preview;
    ExportOptions m_export;
    DiffOptions m_diff;
    Command m_command;
};

bool isCommand(const std::string& word) {
    constexpr std::array commands{"new", "build", "check", "preview", "export", "diff"};
    return std::find(commands.begin(), commands.end(), word) != commands.end();
}

// The first form of the command line, which scripts of suppliers still use.
bool isFirstForm(const std::vector<std::string>& arguments) {
    return arguments.size() >= 2 && !isCommand(arguments[0]) && !arguments[0].starts_with('-') &&
           !arguments[1].starts_with('-');
}

Outcome buildAsBefore(const std::vector<std::string>& arguments, const Streams& streams) {
    BuildOptions options;
    options.source = pathOf(arguments[0]);
    options.zip = pathOf(arguments[1]);
    std::transform(arguments.begin() + 2, arguments.end(), std::back_inserter(options.further), pathOf);
    return build(options, streams);
}

Outcome runCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    if (isFirstForm(arguments))
        return buildAsBefore(arguments, streams);
    Arguments commandLine;
    if (arguments.empty()) {
        streams.err << commandLine.app().help();
        return Outcome::misuse;
    }
    if (!isCommand(arguments[0]) && !arguments[0].starts_with('-')) {
        streams.err << "There is no command \"" << arguments[0]
                    << "\". tavorine-publish --help names them all.\n";
        return Outcome::misuse;
    }
    try {
        commandLine.app().parse(
            std::vector<std::string>(arguments.rbegin(), arguments.rend())); // the last one first
    } catch (const CLI::ParseError& error) {
        const bool isAnswered = commandLine.app().exit(error, streams.out, streams.err) == 0;
        return isAnswered ? Outcome::done : Outcome::misuse;
    }
    return commandLine.run(streams);
}

}

int run(const std::vector<std::string>& arguments, const Streams& streams) {
    auto outcome = Outcome::complaints;
    try {
        outcome = runCommand(arguments, streams);
    } catch (const base::FileError& error) {
        streams.err << "tavorine-publish: " << base::toUtf8(error.what()) << '\n';
    } catch (const base::ProgramEnd& error) {
        streams.err << "tavorine-publish: " << base::toUtf8(error.text()) << '\n';
    } catch (const std::bad_alloc&) {
        streams.err << "tavorine-publish: There is not enough memory for this catalogue.\n";
    } catch (const fs::filesystem_error& error) {
        streams.err
            << "tavorine-publish: " << base::toUtf8(base::textOf(error.path1()))
            << " cannot be used; look whether it is there, whether you may open it, and whether the disk has "
               "room.\n";
    }
    return static_cast<int>(outcome);
}

}
