#include "data/RunTimeError.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

// Handlers test these numbers; a shifted table line would send them the wrong way.
TEST(RunTimeErrorTest, CarriesTheNumbersThatHandlersTest) {
    EXPECT_EQ(makeError(Failure::Overflow).number(), 6);
    EXPECT_EQ(makeError(Failure::FileNotFound).number(), 53);
    EXPECT_EQ(makeError(Failure::NoSuchMember).number(), 438);
    EXPECT_EQ(makeError(Failure::NoCurrentRecord).number(), 3021);
    EXPECT_EQ(makeError(Failure::SyntaxError).number(), -2147217900);
    EXPECT_EQ(makeError(Failure::RowChanged).number(), -2147217864);
    EXPECT_EQ(makeError(Failure::RowDeleted).number(), -2147217885);
    EXPECT_EQ(makeError(Failure::DatabaseFailure).number(), -2147467259);
}

TEST(RunTimeErrorTest, TheDetailSaysWhatWasMeant) {
    EXPECT_EQ(makeError(Failure::TypeMismatch).description(), QStringLiteral("Type mismatch"));
    try {
        raise(Failure::ItemNotFound, QStringLiteral("Jobnumber"));
        FAIL() << "nothing was raised";
    } catch (const std::exception& error) {
        EXPECT_NE(std::string(error.what()).find("(Jobnumber)"), std::string::npos);
    }
}

} // namespace
} // namespace tarnwell
