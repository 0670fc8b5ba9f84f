#include "tools/desk/command.h"

void addStampCommand(CLI::App& app, Session& session) {
    addCommand(app, session, "stamp", "Makes a product's installer");
}
