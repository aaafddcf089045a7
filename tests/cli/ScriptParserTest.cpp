#include "cli/ScriptParser.h"

#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

using Words = std::vector<std::string>;

// The message of the syntax error the script raises; empty when it parses.
std::string ErrorOf(std::string_view script) {
    try {
        ParseScript(script);
    } catch (const ScriptSyntaxError& e) {
        return e.what();
    }
    return {};
}

TEST(ScriptParser, QuotedWordsKeepBlanksAndTakeEscapes) {
    EXPECT_EQ(SplitScriptWords("set  editName\t\"Smith, John\"", 1),
              (Words{"set", "editName", "Smith, John"}));
    EXPECT_EQ(SplitScriptWords(R"(type "say \"hi\"\\ \n\t")", 1),
              (Words{"type", "say \"hi\"\\ \n\t"}));
    EXPECT_EQ(SplitScriptWords(R"(expect message "")", 1), (Words{"expect", "message", ""}));
    EXPECT_EQ(SplitScriptWords("   ", 1), Words{});
}

TEST(ScriptParser, MisplacedQuotesAreErrorsOfTheirLine) {
    EXPECT_EQ(ErrorOf("open frmA\nset editA \"open"), "line 2: Unterminated quote");
    EXPECT_EQ(ErrorOf("set editA \"ends in escape\\"), "line 1: Unterminated quote");
    EXPECT_EQ(ErrorOf("\n\nset editA \"a\"b"), "line 3: A closing quote must end the word");
    EXPECT_EQ(ErrorOf("set editA ab\"c\""), "line 1: A quote inside a word; quote the whole word");
    EXPECT_EQ(ErrorOf("type \"\\q\""), "line 1: Unknown escape '\\q' in a quoted word");
}

TEST(ScriptParser, LineNumbersCountCommentsBlankLinesAndCarriageReturns) {
    auto lines = ParseScript("# a comment\r\n\r\n   # indented comment\r\nopen frmA\r\n"
                             "  click btnOK  \r\n");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].Number, 4);
    EXPECT_EQ(lines[0].Command, "open");
    EXPECT_EQ(lines[0].Args, Words{"frmA"});
    EXPECT_EQ(lines[1].Number, 5);
    EXPECT_EQ(lines[1].Args, Words{"btnOK"});
    EXPECT_EQ(ErrorOf("# one\n\nbogus"), "line 3: Unknown command 'bogus'");
}

TEST(ScriptParser, ModalBlocksNestAndHoldTheirLines) {
    auto lines = ParseScript("modal frmA\n"
                             "  modal frmB\n"
                             "    click btnOK\n"
                             "  end\n"
                             "  click btnGo\n"
                             "end\n"
                             "click btnOpen\n");
    ASSERT_EQ(lines.size(), 2u);
    const ScriptLine& a = lines[0];
    EXPECT_EQ(a.Command, "modal");
    EXPECT_EQ(a.Args, Words{"frmA"});
    ASSERT_EQ(a.Body.size(), 2u);
    EXPECT_EQ(a.Body[0].Args, Words{"frmB"});
    ASSERT_EQ(a.Body[0].Body.size(), 1u);
    EXPECT_EQ(a.Body[0].Body[0].Number, 3);
    EXPECT_EQ(a.Body[1].Args, Words{"btnGo"});
    EXPECT_EQ(lines[1].Number, 7);
}

TEST(ScriptParser, UnbalancedBlocksNameTheLineAtFault) {
    EXPECT_EQ(ErrorOf("open frmA\nmodal frmB\nmodal frmC\nend\n"),
              "line 2: 'modal frmB' has no 'end'");
    EXPECT_EQ(ErrorOf("open frmA\nend"), "line 2: 'end' without 'modal'");
}

TEST(ScriptParser, WrongNumberOfWordsIsMalformed) {
    EXPECT_EQ(ErrorOf("set editA"), "line 1: 'set' takes 2 arguments, found 1");
    EXPECT_EQ(ErrorOf("close now"), "line 1: 'close' takes 0 arguments, found 1");
    EXPECT_EQ(ErrorOf("key a b c"), "line 1: 'key' takes 1 to 2 arguments, found 3");
    EXPECT_EQ(ErrorOf("expect"), "line 1: 'expect' takes at least 1 arguments, found 0");
    EXPECT_EQ(ErrorOf("expect row gridA"),
              "line 1: 'expect row' takes at least 2 arguments, found 1");
    EXPECT_EQ(ErrorOf("expect text editA"), "line 1: 'expect text' takes 2 arguments, found 1");
    EXPECT_EQ(ErrorOf("company open"), "line 1: 'company open' needs the company's folder");
}

TEST(ScriptParser, WordsWithAFixedMeaningAreCheckedBeforeRunning) {
    EXPECT_EQ(ErrorOf("key Ctrl+Foo"), "line 1: Unknown key 'Foo' in short cut 'Ctrl+Foo'");
    EXPECT_EQ(ErrorOf("key editA Hyper+A"),
              "line 1: Unknown modifier 'Hyper' in short cut 'Hyper+A'");
    EXPECT_EQ(ErrorOf("answer Maybe"), "line 1: Unknown message box button 'Maybe'");
    EXPECT_EQ(ErrorOf("select gridA -1"), "line 1: '-1' is not a row number");
    EXPECT_EQ(ErrorOf("select gridA 2x"), "line 1: '2x' is not a row number");
    EXPECT_EQ(ErrorOf("check chkA yes"), "line 1: 'check' is followed by on or off, not 'yes'");
    EXPECT_EQ(ErrorOf("company make"),
              "line 1: 'company' is followed by 'new', 'open', 'old' or 'sample', not 'make'");
    EXPECT_EQ(ErrorOf("expect colour btnA"), "line 1: Unknown expectation 'expect colour'");
    EXPECT_EQ(ErrorOf("expect row gridA Name"),
              "line 1: 'expect row' wants COLUMN=VALUE, found 'Name'");
    // Valid spellings of the same words pass.
    EXPECT_EQ(ErrorOf("key F12\nkey editA Ctrl+Shift+N\nkey q\nanswer ok\nanswer cancel \"Sure?\"\n"
                      "select gridA 0\ncheck chkA off\nexpect row gridA Name=\n"),
              "");
}

} // namespace
} // namespace corvane::cli
