// The release engineer's desk: from a build to checked media. `installer-tool --help` tells its
// commands.
#include <cerrno>
#include <iostream>
#include <iterator>
#include <system_error>

#include "catalogue/build_number.h"
#include "desk/commands/command.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

constexpr struct {
    const char *name, *description;
    OptionsAdder* addOptions;
} commands[] = {
    {"products", "Tells the products and what a run does for each", addProductsOptions},
    {"stamp", "Makes a product's installer: stamp INSTALLER CODE [NAME] OUT", addStampOptions},
    {"encipher", "Makes \"ProductData.inx\" from \"ProductData.ini\"", addEncipherOptions},
    {"decipher", "Makes \"ProductData.ini\" from \"ProductData.inx\"", addDecipherOptions},
    {"layout",
     "Makes the media folder of each product, OUT/CODE, from one description, and checks it",
     addLayoutOptions},
    {"check", "Tells what an installer will do with its media and whether they are whole",
     addCheckOptions},
    {"release", "Makes the installers of all products, with checksums and a bill of materials",
     addReleaseOptions},
    {"verify", "Checks a release: checksums, stamps, bill of materials, protections, signatures",
     addVerifyOptions}};

/// The command that a name of the program stands for: scripts in the field call each by its own.
std::string commandOfName(const std::string& program) {
    const std::string name = fs::path(program).stem().string();
    return name == "check_media" ? "check" : name == "stamp" || name == "encipher" ? name : "";
}

int run(std::vector<std::string> arguments, const std::string& program) {
    Session session;
    CLI::App app("Makes and checks the installers and media of the Tavlink products.",
                 "installer-tool");
    app.set_version_flag("--version", "installer-tool " INSTALLER_BUILD_TEXT);
    app.require_subcommand(0, 1);  // with 1 at least, a wrong word would not be named
    app.footer(
        "Exit codes: 0 good; 1 something is wrong with the input, and is named; 2 wrong usage.\n"
        "\"installer-tool COMMAND --help\" tells more about a command.");
    for (const auto& [name, description, addOptions] : commands) {
        CLI::App* const command = app.add_subcommand(name, description);
        command->add_flag("--json", session.json, "Print the result as JSON");
        command->add_flag("--strict", session.strict,
                          "Count notes and warnings as errors, but for what is noted of a machine");
        addOptions(*command, session);
    }
    try {
        app.parse(std::move(arguments));
        if (app.get_subcommands().empty()) {
            throw CLI::RequiredError("A subcommand");
        }
        std::cout.flush();
        if (!std::cout) {
            throw Refusal(
                "The output cannot be written: " + std::generic_category().message(errno) + '.');
        }
        return session.exitCode;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? exitGood : exitUsage;
    } catch (const std::exception& error) {
        if (session.json) {
            printResult(session, {{"error", reasonOf(error)}}, "");
        }
        std::cerr << program << ": " << reasonOf(error) << '\n';
        return exitWrong;
    }
}

}  // namespace

// What run lets through is that there is no memory left, and that may end the program.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int count, char** arguments) {
    useCodePage(westernCodePage());
    // CLI11 takes them from the back.
    std::vector<std::string> words(std::reverse_iterator(arguments + count),
                                   std::reverse_iterator(arguments + 1));
    const std::string command = commandOfName(arguments[0]);
    if (!command.empty()) {
        words.push_back(command);
    }
    return run(std::move(words), command.empty() ? "installer-tool" : command);
}
