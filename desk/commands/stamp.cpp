// Makes a product's installer.
#include "desk/commands/command.h"
#include "desk/executables/stamp_image.h"
#include "desk/western_text.h"

namespace {

struct Choices {
    std::vector<std::string> words;
    std::string build;
    bool list = false;
};

void stamp(const Choices& choices, const Session& session) {
    if (choices.list) {
        Json document = Json::array();
        std::string words;
        const CProductData catalogue;
        for (const auto& [code, name] : catalogue.ProductNames) {
            document.push_back({{"code", code}, {"name", name}});
            words.append(code).append(" ").append(name).append("\n");
        }
        printResult(session, document, words);  // Kept: scripts in the field read these lines.
        return;
    }
    if (choices.words.size() != 3 && choices.words.size() != 4) {
        throw CLI::ValidationError("stamp", "needs INSTALLER CODE [NAME] OUT");
    }
    const std::string& input = choices.words.front();
    const std::string& output = choices.words.back();
    const bool named = choices.words.size() == 4;
    if (named && choices.words[2].empty()) {
        throw Refusal("The name is empty; leave it out to stamp the catalogue's.");
    }
    const ProductStamp product =
        chooseStamp(choices.words[1], named ? requireWestern(choices.words[2]) : "", choices.build);
    refuseSameFile(input, output);
    printNotes(session, output, product.notes);
    writeOutput(output, stampedInstaller(input, product));
    printResult(session,
                {{"output", output},
                 {"code", product.code},
                 {"name", toUtf8(product.name)},
                 {"notes", product.notes}},
                "");
}

}  // namespace

void addStampOptions(CLI::App& command, Session& session) {
    const auto choices = std::make_shared<Choices>();
    command.add_option("WORDS", choices->words,
                       "INSTALLER: the built installer; CODE: the product's; NAME: for the title, "
                       "the catalogue's when left out; OUT: the file to make, with its folder");
    command.add_option("--build", choices->build,
                       "Product version for the version resource; else the installer's own");
    command.add_flag("--list", choices->list, "Print the codes and names of all products");
    command.callback([choices, &session] { stamp(*choices, session); });
}
