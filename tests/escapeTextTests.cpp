#include "net/escapeText.h"
#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>

TEST_CASE ("form text is escaped byte by byte")
{
    checkTable ("escapeFormText", [] (auto& columns) { return escapeFormText (columns[0]).toStdString(); });
}
