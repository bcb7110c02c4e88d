// The report tests' trend store serves these tests too; it is compiled in, not copied.
#include "../reports/TrendFixture.cpp"
