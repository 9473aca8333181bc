#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/RowSet.h"

namespace tb::test {

// Whether the message is the run-time error text of the operation: "C-Error <number> raised by
// <source> in <operation>\r<description>".
testing::AssertionResult IsRunTimeError(const std::string& Msg, const std::string& operation);

// The texts of one column of the rows in order; none for an empty row set.
std::vector<std::string> Column(const RowSet& rows, std::size_t column);

// The rows as text, one a line, each field by the ordinary conversion and "<null>" for Null,
// separated by " | "; "" for an empty row set.
std::string Rendered(const RowSet& rows);

// The text of a data file under tests/data/golden that stands under the line "== name", up to
// the next such line; lines starting with "#" are comments.
std::string Expected(const std::string& file, const std::string& name);

// The first column of the first row a query finds in a database file ("<no row>" for none).
std::string Scalar(const std::string& file, const std::string& sql);

// The file's whole text ("" when it cannot be read), and writing a file's whole text.
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& text);

// The path of an expected text kept under tests/data/golden.
std::string GoldenFile(const std::string& name);

// The whole text of a data file under tests/data/golden.
std::string DataFile(const std::string& name);

// The rows of a data file under tests/data/golden: one a line, fields separated by tabs; lines
// starting with "#" are comments. In a field \t, \r, \n, \\ and \xNN stand for a tab, a
// carriage return, a line feed, a backslash and the byte NN.
std::vector<std::vector<std::string>> DataFileRows(const std::string& name);

// A value as a data file writes it, its type first: "null", "text Fish & Chips", "number 2.5",
// "whole 42", "bool 1" or "date 2010-03-31 14:05:00".
Value ValueOf(const std::string& field);

}  // namespace tb::test
