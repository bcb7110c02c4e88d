// vantrel-access-reader: reads one Access file into a SQLite file for the program that
// started it, so that a damaged file can hang or crash only this process.
#include "data/AccessReaderChild.h"

int main(int argc, char** argv) {
    return runAccessReaderChild(argc, argv);
}
