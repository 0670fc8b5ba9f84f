// Tells the products and what a run does for each.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "desk/commands/command.h"
#include "desk/media/product_facts.h"
#include "desk/table.h"

namespace {

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : ", ") + text;
    }
    return all.empty() ? "-" : all;
}

Json asJson(const ProductFacts& facts) {
    return {
        {"code", facts.code},
        {"number", facts.number},
        {"name", facts.name},
        {"edition", facts.edition},
        {"demonstrationOf", facts.demonstrationOf.empty() ? Json() : Json(facts.demonstrationOf)},
        {"route", facts.route},
        {"endsSilently", facts.endsSilently},
        {"choices", facts.choices},
        {"files", facts.files},
        {"setupsPerProcessor", facts.setupsPerProcessor}};
}

void products(const Session& session) {
    const std::vector<ProductFacts> all = allProductFacts();
    if (session.json) {
        Json document = Json::array();
        for (const ProductFacts& facts : all) {
            document.push_back(asJson(facts));
        }
        printJson(document);
        return;
    }
    std::vector<std::vector<std::string>> rows = {
        {"code", "no.", "name", "edition", "setups", "choices", "files on the media", "a run"}};
    for (const ProductFacts& facts : all) {
        const std::string of = facts.demonstrationOf.empty() ? "" : " of " + facts.demonstrationOf;
        rows.push_back({facts.code, std::to_string(facts.number), facts.name, facts.edition + of,
                        facts.setupsPerProcessor ? "x86, x64" : "one", joined(facts.choices),
                        joined(facts.files), facts.route});
    }
    std::cout << inColumns(rows);
}

}  // namespace

void addProductsCommand(CLI::App& app, Session& session) {
    addCommand(app, session, "products", "Tells the products and what a run does for each")
        ->callback([&session] { products(session); });
}
