#include "installed/installed_product.h"

#include "tests/rows.h"

TEST(InstalledProduct, IsReportedWithFourNumbersFromEleven) {
    expectRows<std::string, bool>({{"11.0.0.0", true},
                                   {"11.0.0.0.", true},
                                   {"16.4.10002.0", true},
                                   {"011.1.1.1", true},
                                   {"10.9.1", false},
                                   {"10.9.9.9", false},
                                   {"11.0", false},
                                   {"11.0.0", false},
                                   {"11..0.0", false},
                                   {"11.0.0.0.0", false},
                                   {" 11.0.0.0", false},
                                   {"v11.0.0.0", false},
                                   {"", false}},
                                  isReportedVersion);
}
