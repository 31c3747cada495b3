#include "results/ShotFile.h"

#include <gtest/gtest.h>

#include <ostream>

#include "tests/results/WatchedRun.h"
#include "tests/support/HostLocale.h"

namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

/// What a shot file sets: FlagPrevShot and ValueShotRunID.
struct Values {
    std::int32_t flag;
    std::int32_t run;
    bool operator==(const Values&) const = default;
};

void PrintTo(const Values& values, std::ostream* out) {
    *out << "flag " << values.flag << ", run " << values.run;
}

constexpr Values before = {71, 72};  ///< neither stands in any of the files

/// The values after a shot file with these bytes was read.
Values Read(const std::string& bytes) {
    WatchedRun run;
    run.platform.readable["D:\\Proj\\Run03\\Cover03.cmx"] = bytes;
    Values values = before;
    results::ReadShotFile(run.info, values.flag, values.run);
    return values;
}

/// The values after a shot file whose one block has these lines was read.
Values ReadBlock(const std::string& lines) {
    return Read("<SOLID_MCM>\n" + lines + "</SOLID_MCM>\n");
}

/// The same for a block that ends with the file, without a last line end.
Values ReadOpenBlock(const std::string& lines) {
    return Read("<SOLID_MCM>\n" + lines);
}

/// A text filled up with a character to a length.
std::string Filled(std::string text, std::size_t length, char with) {
    text.resize(length, with);
    return text;
}

constexpr std::size_t longestLine = 1023;
constexpr std::size_t longestField = 255;

}  // namespace

// ---- The file ---------------------------------------------------------------------------------

TEST(ShotFile, IsTracedThenOpenedAndNeverClosed) {
    WatchedRun run;
    run.platform.readable["D:\\Proj\\Run03\\Cover03.cmx"] = "<SOLID_MCM>\n</SOLID_MCM>\n";
    results::ReadShotFile(run.info, run.flagPrevShot, run.valueShotRunID);
    EXPECT_EQ(run.Events(),
              (Lines{"trace @@@ Engine read cmx file", "trace D:\\Proj\\Run03\\Cover03.cmx",
                     "open r D:\\Proj\\Run03\\Cover03.cmx"}));
}

TEST(ShotFile, ThatDoesNotOpenIsTracedAllTheSameAndChangesNothing) {
    WatchedRun run;
    Values values = before;
    results::ReadShotFile(run.info, values.flag, values.run);
    EXPECT_EQ(values, before);
    EXPECT_EQ(run.Events(),
              (Lines{"trace @@@ Engine read cmx file", "trace D:\\Proj\\Run03\\Cover03.cmx",
                     "open r D:\\Proj\\Run03\\Cover03.cmx"}));
}

TEST(ShotFile, IsOpenedAnewAtEachRead) {
    WatchedRun run;
    run.platform.readable["D:\\Proj\\Run03\\Cover03.cmx"] = "<SOLID_MCM>\nFlagPrevShot=1\n";
    results::ReadShotFile(run.info, run.flagPrevShot, run.valueShotRunID);
    run.flagPrevShot = 0;
    results::ReadShotFile(run.info, run.flagPrevShot, run.valueShotRunID);
    EXPECT_EQ(run.flagPrevShot, 1);
    EXPECT_EQ(run.platform.EventsOf("open").size(), 2U);
    EXPECT_EQ(run.platform.EventsOf("close"), Lines{});
}

TEST(ShotFile, IsNamedWithTheRunTag) {
    WatchedRun run;
    run.info.runNumber = 12;
    results::ReadShotFile(run.info, run.flagPrevShot, run.valueShotRunID);
    EXPECT_EQ(run.platform.EventsOf("open"), Lines{"r D:\\Proj\\Run03\\Cover12.cmx"});
}

TEST(ShotFile, ThatIsEmptyChangesNothing) {
    EXPECT_EQ(Read(""), before);
    EXPECT_EQ(Read("\n"), before);
}

// ---- Blocks -----------------------------------------------------------------------------------

TEST(ShotFile, BlockSetsBothValues) {
    EXPECT_EQ(ReadBlock("Version = 1\nFlagPrevShot = 1\nValueShotRunID = 2\n"), (Values{1, 2}));
}

TEST(ShotFile, BlockWithoutAKeyKeepsItsEarlierValue) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=1\n"), (Values{1, before.run}));
    EXPECT_EQ(ReadBlock("ValueShotRunID=2\n"), (Values{before.flag, 2}));
    EXPECT_EQ(ReadBlock(""), before);
}

TEST(ShotFile, LinesOutsideABlockAreIgnored) {
    EXPECT_EQ(Read("FlagPrevShot=1\n<SOLID_MCM>\n</SOLID_MCM>\nValueShotRunID=2\n"), before);
    EXPECT_EQ(Read("FlagPrevShot=1\nValueShotRunID=2\n"), before);
    EXPECT_EQ(Read("</SOLID_MCM>\nFlagPrevShot=1\n"), before);
}

TEST(ShotFile, LaterBlockOverridesAnEarlierOne) {
    EXPECT_EQ(Read("<SOLID_MCM>\nFlagPrevShot=1\nValueShotRunID=2\n</SOLID_MCM>\n"
                   "FlagPrevShot=5\n"
                   "<SOLID_MCM>\nFlagPrevShot=3\n</SOLID_MCM>\n"),
              (Values{3, 2}));
}

TEST(ShotFile, LaterBlockKnowsNothingOfAnEarlierOnesLastLine) {
    EXPECT_EQ(Read("<SOLID_MCM>\nFlagPrevShot=1\n</SOLID_MCM>\n<SOLID_MCM>\nValueShotRunID"),
              (Values{1, before.run}));
}

TEST(ShotFile, UnterminatedBlockEndsWithTheFile) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\nValueShotRunID=2\n"), (Values{1, 2}));
}

TEST(ShotFile, BlockThatStartsOnTheLastLineIsEmpty) {
    EXPECT_EQ(Read("<SOLID_MCM>"), before);
    EXPECT_EQ(Read("<SOLID_MCM>\n"), before);
}

TEST(ShotFile, StartLineIsNeverAKeyLine) {
    EXPECT_EQ(Read("<SOLID_MCM>FlagPrevShot=1\n</SOLID_MCM>\n"), before);
    EXPECT_EQ(Read("FlagPrevShot=1 <SOLID_MCM>\n</SOLID_MCM>\n"), before);
}

TEST(ShotFile, StartIsFoundAnywhereInItsLine) {
    EXPECT_EQ(Read(" x<SOLID_MCM>y\nFlagPrevShot=1\n"), (Values{1, before.run}));
}

TEST(ShotFile, EndIsFoundAnywhereInItsLineAndTheRestIsIgnored) {
    EXPECT_EQ(Read("<SOLID_MCM>\nFlagPrevShot=1</SOLID_MCM>ValueShotRunID=2\nFlagPrevShot=3\n"),
              before);
}

TEST(ShotFile, EndLineThatHoldsAStartOpensNoBlock) {
    EXPECT_EQ(Read("<SOLID_MCM>\n</SOLID_MCM><SOLID_MCM>\nFlagPrevShot=1\n"), before);
}

TEST(ShotFile, StartAndEndOnOneLineOutsideABlockOpenOne) {
    EXPECT_EQ(Read("</SOLID_MCM><SOLID_MCM></SOLID_MCM>\nFlagPrevShot=1\n"),
              (Values{1, before.run}));
}

TEST(ShotFile, StartAndEndAreFoundByTheirExactCase) {
    EXPECT_EQ(Read("<solid_mcm>\nFlagPrevShot=1\n"), before);
    EXPECT_EQ(ReadOpenBlock("</solid_mcm>\nFlagPrevShot=1\n"), (Values{1, before.run}));
}

TEST(ShotFile, StartAndEndAreFoundWholeOnly) {
    for (const char* line : {"SOLID_MCM>", "<SOLID_MCM", "<SOLID_MCM />", "< SOLID_MCM>"}) {
        EXPECT_EQ(Read(line + "\nFlagPrevShot=1\n"s), before) << line;
    }
    for (const char* line : {"/SOLID_MCM>", "</SOLID_MCM", "</SOLID_MCM >", "<\\SOLID_MCM>"}) {
        EXPECT_EQ(ReadOpenBlock(line + "\nFlagPrevShot=1\n"s), (Values{1, before.run})) << line;
    }
}

TEST(ShotFile, BlocksDoNotNest) {
    EXPECT_EQ(Read("<SOLID_MCM>\n<SOLID_MCM>\nFlagPrevShot=1\n</SOLID_MCM>\nValueShotRunID=2\n"),
              (Values{1, before.run}));
}

// ---- Keys -------------------------------------------------------------------------------------

TEST(ShotFile, KeysAreFoundInAnyCase) {
    EXPECT_EQ(ReadBlock("flagprevshot=1\nVALUESHOTRUNID=2\n"), (Values{1, 2}));
    EXPECT_EQ(ReadBlock("fLAGpREVsHOT=1\nvAlUeShOtRuNiD=2\n"), (Values{1, 2}));
}

TEST(ShotFile, KeysAreFoundInAnyCaseUnderEveryLocale) {
    for (const char* name : {support::kTurkishLocale, support::kGermanLocale}) {
        const support::HostLocale locale(name);
        EXPECT_EQ(ReadBlock("FLAGPREVSHOT=1\nvalueshotrunid=1234567\n"), (Values{1, 1234567}))
            << name;
    }
}

TEST(ShotFile, UnknownKeysAndTheVersionChangeNothing) {
    EXPECT_EQ(ReadBlock("Version=5\nFlagPrevShots=5\nFlagPrevSho=5\nShotRunID=5\n=5\n5\n"), before);
}

TEST(ShotFile, TrailingSpacesOfAKeyAreTrimmed) {
    EXPECT_EQ(ReadBlock("FlagPrevShot   =1\nValueShotRunID =2\n"), (Values{1, 2}));
}

TEST(ShotFile, OtherWhiteSpaceAfterAKeyIsNotTrimmed) {
    EXPECT_EQ(ReadBlock("FlagPrevShot\t=1\nValueShotRunID\t =2\n"), before);
    EXPECT_EQ(ReadBlock("FlagPrevShot\r=1\nValueShotRunID\v=2\n"), before);
}

TEST(ShotFile, LeadingSpacesOfAKeyAreNotTrimmed) {
    EXPECT_EQ(ReadBlock(" FlagPrevShot=1\n\tValueShotRunID=2\n"), before);
}

TEST(ShotFile, KeyOfSpacesOnlyChangesNothing) {
    EXPECT_EQ(ReadBlock("   =1\n"), before);
}

TEST(ShotFile, LeadingEqualsSignsAreSkipped) {
    EXPECT_EQ(ReadBlock("=FlagPrevShot=1\n===ValueShotRunID=2\n"), (Values{1, 2}));
}

TEST(ShotFile, KeyIsCutAt255Characters) {
    const std::string padded = Filled("FlagPrevShot", longestField, ' ');
    EXPECT_EQ(ReadBlock(padded + "=1\n"), (Values{1, before.run}));
    EXPECT_EQ(ReadBlock(padded + "x=1\n"), (Values{1, before.run}));
    EXPECT_EQ(ReadBlock(padded + std::string(300, 'x') + "=1\n"), (Values{1, before.run}));
    EXPECT_EQ(ReadBlock(Filled("FlagPrevShot", longestField - 1, ' ') + "x=1\n"), before);
}

// ---- Values -----------------------------------------------------------------------------------

TEST(ShotFile, ValueMayHaveLeadingWhiteSpaceAndTrailingGarbage) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=   1 x\nValueShotRunID=\t 2abc\n"), (Values{1, 2}));
    EXPECT_EQ(ReadBlock("FlagPrevShot=1.9\nValueShotRunID=0x10\n"), (Values{1, 0}));
}

TEST(ShotFile, ValueMayHaveASign) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=-1\nValueShotRunID=+2\n"), (Values{-1, 2}));
}

TEST(ShotFile, ValueMayHaveLeadingZeros) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=01\nValueShotRunID=010\n"), (Values{1, 10}));
}

TEST(ShotFile, ValueMayBeAsLargeAsTheVariable) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=2147483647\nValueShotRunID=-2147483648\n"),
              (Values{2147483647, -2147483647 - 1}));
}

TEST(ShotFile, ValueWithoutANumberChangesNothing) {
    for (const char* value : {"", " ", "x1", "-", "- 1", "--1", "+-1", ".5", "\"1\""}) {
        EXPECT_EQ(ReadBlock("FlagPrevShot="s + value + "\n"), before) << value;
        EXPECT_EQ(ReadBlock("ValueShotRunID="s + value + "\n"), before) << value;
    }
}

TEST(ShotFile, ValueEndsAtTheNextEqualsSign) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=1=5\nValueShotRunID= =5\n"), (Values{1, before.run}));
}

TEST(ShotFile, EqualsSignsBetweenKeyAndValueCountAsOne) {
    EXPECT_EQ(ReadBlock("FlagPrevShot==1\nValueShotRunID====2\n"), (Values{1, 2}));
}

TEST(ShotFile, ValueIsCutAt255Characters) {
    const std::string spaces(longestField - 2, ' ');
    EXPECT_EQ(ReadBlock("ValueShotRunID=" + spaces + "12345\n"), (Values{before.flag, 12}));
    EXPECT_EQ(ReadBlock("ValueShotRunID=" + spaces + " 12345\n"), (Values{before.flag, 1}));
    EXPECT_EQ(ReadBlock("ValueShotRunID=" + spaces + "  12345\n"), before);
}

// ---- Fields that outlive their line -----------------------------------------------------------

TEST(ShotFile, KeyWithoutValueReappliesTheOldOne) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\nValueShotRunID"), (Values{1, 1}));
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\nValueShotRunID="), (Values{1, 1}));
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\nValueShotRunID  ==="), (Values{1, 1}));
}

TEST(ShotFile, OldValueMayComeFromAnIgnoredKey) {
    EXPECT_EQ(ReadOpenBlock("Version=7\nFlagPrevShot"), (Values{7, before.run}));
    EXPECT_EQ(ReadOpenBlock("anything=7\nFlagPrevShot"), (Values{7, before.run}));
}

TEST(ShotFile, KeyWithoutValueInAFreshBlockChangesNothing) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot"), before);
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot="), before);
}

TEST(ShotFile, LineEndIsAValueOfItsOwn) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\nVersion=\nValueShotRunID"), (Values{1, before.run}));
}

TEST(ShotFile, LineEndBelongsToAKeyWithoutEqualsSign) {
    EXPECT_EQ(ReadBlock("Version=1\nFlagPrevShot\nValueShotRunID\n"), before);
}

TEST(ShotFile, LineOfEqualsSignsOnlyKeepsTheFields) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\n==="), (Values{1, before.run}));
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\n" + std::string(longestLine, '=') + "ValueShotRunID"),
              (Values{1, 1}));
}

TEST(ShotFile, LineOfEqualsSignsAndALineEndKeepsTheValueOnly) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\n===\nValueShotRunID"), (Values{1, 1}));
    EXPECT_EQ(ReadBlock("FlagPrevShot=1\n===\n=\n"), (Values{1, before.run}));
}

TEST(ShotFile, EmptyLineIsAKeyOfItsOwn) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=1\n\n\nValueShotRunID=2\n"), (Values{1, 2}));
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\n\nValueShotRunID"), (Values{1, 1}));
}

// ---- Lines ------------------------------------------------------------------------------------

TEST(ShotFile, LastLineNeedsNoLineEnd) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1"), (Values{1, before.run}));
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\n</SOLID_MCM>"), (Values{1, before.run}));
}

TEST(ShotFile, CarriageReturnsBeforeLineEndsAreHarmless) {
    EXPECT_EQ(Read("<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID = 2\r\n</SOLID_MCM>\r\n"),
              (Values{1, 2}));
}

TEST(ShotFile, CarriageReturnsAloneEndNoLine) {
    EXPECT_EQ(Read("<SOLID_MCM>\rFlagPrevShot=1\rValueShotRunID=2\r</SOLID_MCM>\r"), before);
}

TEST(ShotFile, LongLineIsReadInPiecesOf1023Characters) {
    const std::string filler = Filled("x=5", longestLine, ' ');
    EXPECT_EQ(ReadBlock(filler + "FlagPrevShot=1\n"), (Values{1, before.run}));
    EXPECT_EQ(ReadBlock(filler + filler + "FlagPrevShot=1\n"), (Values{1, before.run}));
    EXPECT_EQ(ReadBlock(filler + " FlagPrevShot=1\n"), before);
    EXPECT_EQ(ReadBlock(filler.substr(1) + "FlagPrevShot=1\n"), before);
}

TEST(ShotFile, LineOf1023CharactersIsOneLineAndAnEmptyPiece) {
    const std::string line = Filled("FlagPrevShot=1", longestLine, ' ');
    EXPECT_EQ(ReadBlock(line + "\nValueShotRunID=2\n"), (Values{1, 2}));
    EXPECT_EQ(ReadOpenBlock(line), (Values{1, before.run}));
}

TEST(ShotFile, PieceOfASingleEqualsSignKeepsTheFields) {
    const std::string line = Filled("FlagPrevShot=1", longestLine, ' ');
    EXPECT_EQ(ReadOpenBlock(line + "="), (Values{1, before.run}));
    EXPECT_EQ(ReadBlock(line + "=\nValueShotRunID=2\n"), (Values{1, 2}));
}

TEST(ShotFile, KeyCutOffItsValueByTheLineLimitReappliesTheOldValue) {
    const std::string key = Filled("ValueShotRunID", longestLine, ' ');
    EXPECT_EQ(ReadBlock("FlagPrevShot=1\n" + key + "=5\n"), (Values{1, 1}));
    EXPECT_EQ(
        ReadBlock("FlagPrevShot=1\n" + Filled("ValueShotRunID", longestLine - 1, ' ') + "=5\n"),
        (Values{1, 1}));
    EXPECT_EQ(
        ReadBlock("FlagPrevShot=1\n" + Filled("ValueShotRunID", longestLine - 2, ' ') + "=5\n"),
        (Values{1, 5}));
}

TEST(ShotFile, RestOfALongStartLineIsTheBlocksFirstLine) {
    const std::string start = Filled("<SOLID_MCM>", longestLine, ' ');
    EXPECT_EQ(Read(start + "FlagPrevShot=1\n</SOLID_MCM>\n"), (Values{1, before.run}));
}

TEST(ShotFile, StartOrEndCutByTheLineLimitIsNotSeen) {
    const std::string filler(longestLine - 5, ' ');
    EXPECT_EQ(Read(filler + "<SOLID_MCM>\nFlagPrevShot=1\n"), before);
    EXPECT_EQ(ReadOpenBlock(filler + "</SOLID_MCM>\nFlagPrevShot=1\n"), (Values{1, before.run}));
}

// ---- NUL bytes, which end the text of a line but not the line ---------------------------------

TEST(ShotFile, WhatFollowsANulByteInALineIsNotSeen) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=1\0002\nValueShotRunID=2\n"s), (Values{1, 2}));
    EXPECT_EQ(ReadBlock("x\0=\nFlagPrevShot\0x=1\n"s), before);
    EXPECT_EQ(ReadOpenBlock("x\0</SOLID_MCM>\nFlagPrevShot=1\n"s), (Values{1, before.run}));
    EXPECT_EQ(Read("x\0<SOLID_MCM>\nFlagPrevShot=1\n"s), before);
}

TEST(ShotFile, KeyBeforeANulByteReappliesTheOldValue) {
    EXPECT_EQ(ReadBlock("FlagPrevShot=1\nValueShotRunID\0=5\n"s), (Values{1, 1}));
    EXPECT_EQ(ReadBlock("FlagPrevShot=1\nValueShotRunID=\0005\n"s), (Values{1, 1}));
}

TEST(ShotFile, LineThatStartsWithANulByteKeepsBothFields) {
    EXPECT_EQ(ReadOpenBlock("FlagPrevShot=1\n\0ValueShotRunID=5\n\0\nValueShotRunID"s),
              (Values{1, 1}));
}
