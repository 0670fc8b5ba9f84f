// What both stages have in common: how a row is played.
#include "tools/run_stage/stage.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <tuple>

#include "catalogue/product_catalogue.h"

std::string play(const Case& row) {
    const bool described = stageSystem() == System::Described;
    if (row.where == (described ? Where::OnWindows : Where::Described)) {
        return "";
    }
    SCOPED_TRACE(row.name);
    ProductIdentity product{.code = row.name.substr(0, row.name.find(':')), .name = ""};
    std::ignore = CProductData().productName(product.code, product.name);
    if (product.code == "1q") {
        product.code = "1Q";
    }
    clearStage(product);
    setupIn(media)();
    file(elsewhere + "ProductData.ini", "[Version Number]\r\nVersion Number=9.9.9.9\r\n")();
    for (const Given& given : row.given) {
        given();
    }
    const Performance run = perform(row);
    EXPECT_EQ(run.seen, run.expected);
    if (run.hangs) {
        // Every row behind it would take as long.
        std::cerr << "The installer hangs in the row " << row.name << ", which ends the suite.\n";
        std::exit(1);
    }
    return run.seen;
}

void play(const std::vector<Case>& rows) {
    for (const Case& row : rows) {
        play(row);
    }
}
