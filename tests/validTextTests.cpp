#include "base/validText.h"
#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>

TEST_CASE ("bytes from outside become valid text up to their first zero byte")
{
    checkTable ("validText", [] (auto& columns) {
        return validText (columns[0].data(), columns[0].size()).toStdString();
    });
}

TEST_CASE ("a whole text is decoded from UTF-16 by its mark, with its zero characters")
{
    checkTable ("decodedText",
                [] (auto& columns) { return decodedText (columns[0].data(), columns[0].size()); });
}
