#pragma once
// The child process that reads an Access file for readAccessDatabase and
// convertAccessFile (AccessReader.h): vantrel-access-reader ACCESS_FILE OUT.sqlite.

// The whole of the reader program; returns its exit code.
int runAccessReaderChild(int argc, char** argv);
