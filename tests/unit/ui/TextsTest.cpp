// The texts of the dialog in every language, as they lie in the program.
#include <gtest/gtest.h>

#include <map>

#include "ui/Resources.h"

namespace crashvane::test {
namespace {

using Texts = std::map<int, std::wstring>;

const Texts English = {
    {103, L"Error Reporting"},
    {119, L"Sorry! Client unexpected error has occurred, will terminate the operation."},
    {120, L"In order to improve our products and generate a bug report and hope you will send a report to us."},
    {121, L"Error report does not contain any of your private information."},
    {122, L"View the error report"},
    {123, L"Restart the program"},
    {124, L"Please enter the feedback information "},
    {125, L"Send report"},
    {126, L"Exit"},
    {127, L"Click to fix the error"},
};
const Texts SimplifiedChinese = {
    {103, L"错误报告"},
    {119, L"非常抱歉！客户端程序发生了意外错误，即将终止运行。"},
    {120, L"为了改进我们的产品，生成了一份错误报告，并希望您将报告发送给我们。"},
    {121, L"错误报告中，不包含任何您的私人信息。"},
    {122, L"查看错误报告内容"},
    {123, L"重新启动程序"},
    {124, L"请输入反馈信息（如错误发生时您正在做的操作）"},
    {125, L"发送错误报告"},
    {126, L"退出"},
    {127, L"点此查看修复方案"},
};
const Texts TraditionalChinese = {
    {103, L"錯誤報告"},
    {119, L"非常抱歉！客戶端程序發生了意外錯誤，即將終止運行。"},
    {120, L"為了改進我們的產品，生成了一份錯誤報告，並希望您將報告發送給我們。"},
    {121, L"錯誤報告中，不包含任何您的私人?息。"},
    {122, L"查看錯誤報告"},
    {123, L"重新啟動程式"},
    {124, L"請輸入反饋信息(如錯誤發生時您正在做的操作)"},
    {125, L"發送錯誤報告"},
    {126, L"退出"},
    {127, L"點此查看修復方案"},
};
const Texts Korean = {
    {103, L"오류보고"},
    {119, L"죄송합니다. 클라이언트에 알 수 없는 오류가 발생하여, 즉시 종료합니다."},
    {120, L"제품을 개선하기 위해 생성된 오류보고를 우리에게 보내 주시기 바랍니다."},
    {121, L"오류보고는 개인 정보가 포함되어 있지 않습니다."},
    {122, L"오류 보고서 보기"},
    {123, L"프로그램을 다시 시작"},
    {124, L"피드백을 입력해 주세요(예를 들어 오류 발생시 작업 하시던 업무)"},
    {125, L"오류보고 보내기"},
    {126, L"종료"},
    {127, L"이를 점검하여 복구 방안을 살펴보다"},
};

// Sixteen texts a table, each with its length in front.
Texts ReadAll(int nLanguage) {
    Texts Read;
    for (int nBlock = 1; nBlock <= 64; ++nBlock) {
        const std::vector<unsigned char> Bytes = ResourceBytes(RT_STRING, nBlock, nLanguage);
        Reader From(Bytes);
        for (int nText = 0; nText < 16 && !Bytes.empty(); ++nText) {
            const std::wstring strText = From.TakeText(From.Take<WORD>());
            if (!strText.empty()) {
                Read[(nBlock - 1) * 16 + nText] = strText;
            }
        }
    }
    return Read;
}

BOOL CALLBACK KeepLanguage(HMODULE, const char*, const char*, WORD uLanguage, LONG_PTR lParam) {
    ++(*reinterpret_cast<std::map<int, int>*>(lParam))[uLanguage];
    return TRUE;
}

TEST(TextsTest, CarriesSimplifiedChinese) {
    EXPECT_EQ(ReadAll(2052), SimplifiedChinese);
}

TEST(TextsTest, CarriesTraditionalChineseWithTheQuestionMarkThatItHas) {
    EXPECT_EQ(ReadAll(1028), TraditionalChinese);
}

TEST(TextsTest, CarriesEnglishOfTheUnitedStates) {
    EXPECT_EQ(ReadAll(1033), English);
}

TEST(TextsTest, CarriesEnglishOfTheUnitedKingdom) {
    EXPECT_EQ(ReadAll(2057), English);
}

TEST(TextsTest, CarriesTheEnglishTextsForVietnamese) {
    EXPECT_EQ(ReadAll(1066), English);
}

TEST(TextsTest, CarriesKorean) {
    EXPECT_EQ(ReadAll(1042), Korean);
}

TEST(TextsTest, CarriesNoOtherLanguage) {
    std::map<int, int> Languages;
    for (const int nBlock : {7, 8}) {
        EnumResourceLanguagesA(nullptr, RT_STRING, MAKEINTRESOURCEA(nBlock), KeepLanguage,
                               reinterpret_cast<LONG_PTR>(&Languages));
    }
    const std::map<int, int> Expected = {{1028, 2}, {1033, 2}, {1042, 2}, {1066, 2}, {2052, 2}, {2057, 2}};
    EXPECT_EQ(Languages, Expected);
}

}  // namespace
}  // namespace crashvane::test
