#include "tools/desk/command.h"

void addProductsCommand(CLI::App& app, Session& session) {
    addCommand(app, session, "products", "Tells the products and what a run does for each");
}
