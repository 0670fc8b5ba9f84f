// Tells the products and what a run does for each.
#include "desk/commands/command.h"
#include "desk/media/product_facts.h"

namespace {

void products(const Session& session) {
    Json document = Json::array();
    std::vector<std::vector<std::string>> rows = {
        {"code", "no.", "name", "edition", "setups", "choices", "files on the media", "a run"}};
    const auto listed = [](const std::vector<std::string>& texts) {
        return texts.empty() ? "-" : joined(texts);
    };
    for (const ProductFacts& facts : productFacts()) {
        const bool isOf = !facts.demonstrationOf.empty();
        document.push_back({{"code", facts.code},
                            {"number", facts.number},
                            {"name", facts.name},
                            {"edition", facts.edition},
                            {"demonstrationOf", isOf ? Json(facts.demonstrationOf) : Json()},
                            {"route", facts.route},
                            {"endsSilently", facts.endsSilently},
                            {"choices", facts.choices},
                            {"files", facts.files},
                            {"setupsPerProcessor", facts.setupsPerProcessor}});
        rows.push_back({facts.code, std::to_string(facts.number), facts.name,
                        facts.edition + (isOf ? " of " + facts.demonstrationOf : ""),
                        facts.setupsPerProcessor ? "x86, x64" : "one", listed(facts.choices),
                        listed(facts.files), facts.route});
    }
    printResult(session, document, inColumns(rows));
}

}  // namespace

void addProductsOptions(CLI::App& command, Session& session) {
    command.callback([&session] { products(session); });
}
