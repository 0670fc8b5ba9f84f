// Enciphers and deciphers the product-data file.
#include "catalogue/cipher.h"
#include "catalogue/product_data_file.h"
#include "desk/commands/command.h"
#include "desk/media/media_report.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

struct Files {
    std::string input;
    std::string output;
    bool keepsLineEnds = false;
};

std::shared_ptr<Files> addFiles(CLI::App& command) {
    auto files = std::make_shared<Files>();
    command.add_option("IN", files->input, "The file to read")->required();
    command.add_option("OUT", files->output, "The file to make")->required();
    return files;
}

/// The build that a run reads from the file's text.
std::string buildIn(const std::string& text, const std::string& file) {
    const std::string kept = withoutComments(text);
    std::string_view body;
    if (!extractSection(kept, versionSectionHeader, body)) {
        refuse(file,
               "has no section \"[Version Number]\", or nothing in it; add "
               "the section with a line \"Version Number=\" and the build.");
    }
    ValueParts values;
    if (!parseValues(body, values) || values["Version Number"].empty()) {
        refuse(file,
               "gives no \"Version Number\" in its section \"[Version "
               "Number]\"; add a line \"Version Number=\" with the build.");
    }
    return std::string(values["Version Number"]);
}

void encipherFile(const Files& files, const Session& session) {
    refuseSameFile(files.input, files.output);
    std::string text = readInput(files.input);
    if (text.starts_with(cipher::magic)) {
        refuse(files.input,
               "is enciphered already; \"installer-tool decipher\" makes it readable.");
    }
    const std::string ended =
        replaceAll(replaceAll(text, "\r\n", "\n", false), "\n", "\r\n", false);
    if (!files.keepsLineEnds && ended != text) {
        printNotes(session, files.input,
                   {"its lines are made to end in CR LF in the output; with bare line feeds the "
                    "build would swallow what follows"});
        text = ended;
    }
    const std::string build = buildIn(text, files.input);
    if (const std::string fault = buildFault(build); !fault.empty()) {
        throw Refusal(inQuotes(files.input) + ": " + fault);
    }
    writeOutput(files.output, encipher(text));
    printResult(session, {{"output", files.output}, {"build", toUtf8(build)}}, "");
}

void decipherFile(const Files& files, const Session& session) {
    refuseSameFile(files.input, files.output);
    std::string text, error;
    if (!decipher(readInput(files.input), text, error)) {
        refuse(files.input, "cannot be deciphered: " + error + " Encipher the readable file anew.");
    }
    writeOutput(files.output, text);
    printResult(session, {{"output", files.output}}, "");
}

}  // namespace

void addEncipherOptions(CLI::App& command, Session& session) {
    const auto files = addFiles(command);
    command.add_flag("--keep-line-ends", files->keepsLineEnds,
                     "Encipher lines as they end, not with CR LF");
    command.callback([files, &session] { encipherFile(*files, session); });
}

void addDecipherOptions(CLI::App& command, Session& session) {
    const auto files = addFiles(command);
    command.callback([files, &session] { decipherFile(*files, session); });
}
