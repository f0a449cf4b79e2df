#include "driver/OptionParser.h"

#include <gtest/gtest.h>

#include "driver/Arguments.h"

namespace crashvane {
namespace {

constexpr const char OPTIONS[] = "bmdf:as:r:c:p:";

TEST(OptionParser, EndsWhenThereIsNoArgument) {
    Arguments Given({});
    EXPECT_EQ(Given.Next(OPTIONS), -1);
}

TEST(OptionParser, ReadsOneOptionACall) {
    Arguments Given({"-b", "-d"});
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), 'd');
    EXPECT_EQ(Given.Next(OPTIONS), -1);
}

TEST(OptionParser, ReadsEveryLetterOfACluster) {
    Arguments Given({"-abd", "-m"});
    EXPECT_EQ(Given.Next(OPTIONS), 'a');
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), 'd');
    EXPECT_EQ(Given.Next(OPTIONS), 'm');
    EXPECT_EQ(Given.Next(OPTIONS), -1);
}

TEST(OptionParser, TakesTheNextArgumentAsValue) {
    Arguments Given({"-f", "report.xml", "-b"});
    EXPECT_EQ(Given.Next(OPTIONS), 'f');
    EXPECT_STREQ(optarg, "report.xml");
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
}

TEST(OptionParser, TakesAValueThatBeginsWithAHyphen) {
    Arguments Given({"-c", "-window", "-f", "--"});
    EXPECT_EQ(Given.Next(OPTIONS), 'c');
    EXPECT_STREQ(optarg, "-window");
    EXPECT_EQ(Given.Next(OPTIONS), 'f');
    EXPECT_STREQ(optarg, "--");
}

TEST(OptionParser, TakesAnEmptyValue) {
    Arguments Given({"-p", "", "-b"});
    EXPECT_EQ(Given.Next(OPTIONS), 'p');
    EXPECT_STREQ(optarg, "");
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
}

TEST(OptionParser, ForgetsTheLettersBehindAnOptionWithAValue) {
    Arguments Given({"-fd", "x", "-m"});
    EXPECT_EQ(Given.Next(OPTIONS), 'f');
    EXPECT_STREQ(optarg, "x");
    EXPECT_EQ(Given.Next(OPTIONS), 'm');
    EXPECT_EQ(Given.Next(OPTIONS), -1);
}

TEST(OptionParser, TakesNoValueOutOfTheOptionsOwnArgument) {
    Arguments Given({"-fpath", "x"});
    EXPECT_EQ(Given.Next(OPTIONS), 'f');
    EXPECT_STREQ(optarg, "x");
    EXPECT_EQ(Given.Next(OPTIONS), -1);
}

TEST(OptionParser, TakesAValueInTheMiddleOfACluster) {
    Arguments Given({"-bfd", "x"});
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), 'f');
    EXPECT_STREQ(optarg, "x");
    EXPECT_EQ(Given.Next(OPTIONS), -1);
}

TEST(OptionParser, EndsAtTheFirstArgumentThatIsNoOption) {
    Arguments Given({"-b", "a.xml", "-d"});
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), -1);
    EXPECT_EQ(Given.Next(OPTIONS), -1);
}

TEST(OptionParser, EndsAtALoneHyphenAndAtAnEmptyArgument) {
    Arguments Hyphen({"-", "-d"});
    EXPECT_EQ(Hyphen.Next(OPTIONS), -1);
    EXPECT_EQ(Hyphen.Next(OPTIONS), -1);
    Arguments Empty({"", "-d"});
    EXPECT_EQ(Empty.Next(OPTIONS), -1);
}

TEST(OptionParser, ConsumesTheArgumentOfTwoHyphensAndEnds) {
    Arguments Given({"--batch", "-d"});
    EXPECT_EQ(Given.Next(OPTIONS), -1);
    EXPECT_EQ(Given.Next(OPTIONS), 'd');
}

TEST(OptionParser, SaysWhichLetterIsUnknownAndGoesOn) {
    Arguments Given({"-x", "-f", "a.xml"});
    const StandardErrorCapture Errors;
    EXPECT_EQ(Given.Next(OPTIONS), 63);
    EXPECT_EQ(Errors.Text(), "Error in argument 1, char 2: option not found x\n");
    EXPECT_EQ(Given.Next(OPTIONS), 'f');
    EXPECT_STREQ(optarg, "a.xml");
}

TEST(OptionParser, GoesOnInsideTheClusterBehindAnUnknownLetter) {
    Arguments Given({"-b", "-axd"});
    const StandardErrorCapture Errors;
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), 'a');
    EXPECT_EQ(Given.Next(OPTIONS), 63);
    EXPECT_EQ(Given.Next(OPTIONS), 'd');
    EXPECT_EQ(Given.Next(OPTIONS), -1);
    EXPECT_EQ(Errors.Text(), "Error in argument 2, char 3: option not found x\n");
}

TEST(OptionParser, TreatsAHyphenInsideAClusterAsUnknown) {
    Arguments Given({"-b-d"});
    const StandardErrorCapture Errors;
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), 63);
    EXPECT_EQ(Given.Next(OPTIONS), 'd');
    EXPECT_EQ(Errors.Text(), "Error in argument 1, char 3: option not found -\n");
}

TEST(OptionParser, TellsCapitalsFromSmallLetters) {
    Arguments Given({"-B"});
    const StandardErrorCapture Errors;
    EXPECT_EQ(Given.Next(OPTIONS), 63);
    EXPECT_EQ(Errors.Text(), "Error in argument 1, char 2: option not found B\n");
}

TEST(OptionParser, PrintsAPercentSignAsItStands) {
    Arguments Given({"-%"});
    const StandardErrorCapture Errors;
    EXPECT_EQ(Given.Next(OPTIONS), 63);
    EXPECT_EQ(Errors.Text(), "Error in argument 1, char 2: option not found %\n");
}

TEST(OptionParser, RefusesAColonAndLeavesItsArgument) {
    Arguments Given({"-b:d", "-m"});
    const StandardErrorCapture Errors;
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), 63);
    EXPECT_EQ(Given.Next(OPTIONS), 'm');
    EXPECT_EQ(Errors.Text(), "Error in argument 1, char 3: : in flags\n");
}

TEST(OptionParser, SaysWhenTheValueIsMissing) {
    Arguments Given({"-b", "-df"});
    const StandardErrorCapture Errors;
    EXPECT_EQ(Given.Next(OPTIONS), 'b');
    EXPECT_EQ(Given.Next(OPTIONS), 'd');
    EXPECT_EQ(Given.Next(OPTIONS), 63);
    EXPECT_EQ(Given.Next(OPTIONS), -1);
    EXPECT_EQ(Errors.Text(), "Error in argument 2, char 3: no argument for option f\n");
}

TEST(OptionParser, HandsOutANullValueAsItStands) {
    char szProgram[] = "Crashvane.exe";
    char szOption[] = "-f";
    char* Vector[] = {szProgram, szOption, nullptr};
    ResetOptions();
    EXPECT_EQ(NextOption(3, Vector, OPTIONS), 'f');
    EXPECT_EQ(optarg, nullptr);
}

TEST(OptionParser, EndsAtANullArgument) {
    char szProgram[] = "Crashvane.exe";
    char* Vector[] = {szProgram, nullptr};
    ResetOptions();
    EXPECT_EQ(NextOption(2, Vector, OPTIONS), -1);
}

}  // namespace
}  // namespace crashvane
