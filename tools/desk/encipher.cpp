#include "tools/desk/command.h"

void addEncipherCommand(CLI::App& app, Session& session) {
    addCommand(app, session, "encipher", "Makes ProductData.inx from ProductData.ini");
}

void addDecipherCommand(CLI::App& app, Session& session) {
    addCommand(app, session, "decipher", "Makes ProductData.ini from ProductData.inx");
}
