#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "platform/automation.h"

namespace {

IErrorInfo* MakeError(const OLECHAR* description) {
    ICreateErrorInfo* made = nullptr;
    EXPECT_EQ(CreateErrorInfo(&made), S_OK);
    std::u16string text = description;
    EXPECT_EQ(made->SetDescription(text.data()), S_OK);
    EXPECT_EQ(made->SetGUID(IID_IDispatch), S_OK);
    EXPECT_EQ(made->SetHelpContext(12), S_OK);
    void* error = nullptr;
    EXPECT_EQ(made->QueryInterface(IID_IErrorInfo, &error), S_OK);
    made->Release();
    return static_cast<IErrorInfo*>(error);
}

void Set(const OLECHAR* description) {
    IErrorInfo* const error = MakeError(description);
    EXPECT_EQ(SetErrorInfo(0, error), S_OK);
    error->Release();
}

std::u16string TakeDescription() {
    IErrorInfo* error = nullptr;
    if (GetErrorInfo(0, &error) != S_OK) return u"(none)";
    BSTR text = nullptr;
    EXPECT_EQ(error->GetDescription(&text), S_OK);
    std::u16string description(text, SysStringLen(text));
    SysFreeString(text);
    error->Release();
    return description;
}

TEST(ErrorInformation, IsTakenOnce) {
    Set(u"first");
    Set(u"second");
    EXPECT_EQ(TakeDescription(), u"second");
    EXPECT_EQ(TakeDescription(), u"(none)");
    Set(u"third");
    EXPECT_EQ(SetErrorInfo(0, nullptr), S_OK);
    EXPECT_EQ(TakeDescription(), u"(none)");
    IErrorInfo* error = nullptr;
    EXPECT_EQ(GetErrorInfo(1, &error), E_INVALIDARG);
}

TEST(ErrorInformation, BelongsToItsThread) {
    Set(u"here");
    std::thread other([] {
        EXPECT_EQ(TakeDescription(), u"(none)");
        // Left behind for the end of the thread to release.
        Set(u"there");
    });
    other.join();
    EXPECT_EQ(TakeDescription(), u"here");
}

TEST(ErrorInformation, KeepsEveryFieldAndIsOneObject) {
    IErrorInfo* const error = MakeError(u"text");
    GUID guid = {};
    DWORD context = 0;
    BSTR source = nullptr;
    EXPECT_EQ(error->GetGUID(&guid), S_OK);
    EXPECT_TRUE(guid == IID_IDispatch);
    EXPECT_EQ(error->GetHelpContext(&context), S_OK);
    EXPECT_EQ(context, 12u);
    EXPECT_EQ(error->GetSource(&source), S_OK);
    EXPECT_EQ(source, nullptr) << "never set";

    void* created = nullptr;
    void* identity = nullptr;
    ASSERT_EQ(error->QueryInterface(IID_ICreateErrorInfo, &created), S_OK);
    ASSERT_EQ(error->QueryInterface(IID_IUnknown, &identity), S_OK);
    void* same = nullptr;
    ASSERT_EQ(static_cast<ICreateErrorInfo*>(created)->QueryInterface(IID_IUnknown, &same), S_OK);
    EXPECT_EQ(same, identity);
    EXPECT_EQ(error->QueryInterface(IID_IDispatch, &same), E_NOINTERFACE);
    EXPECT_EQ(same, nullptr);
    for (ULONG left = 4; left > 0; --left)
        EXPECT_EQ(error->Release(), left - 1);
}

}  // namespace
