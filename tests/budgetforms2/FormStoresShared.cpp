// The budget form tests' stores and modal driver serve these tests too; compiled in, not copied.
#include "../budgetforms1/FormStores.cpp"
