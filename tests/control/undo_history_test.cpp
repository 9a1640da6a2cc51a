#include "control/editor/undo_history.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"

namespace mavrin2::editor {
namespace {

// There may be ten thousand of them, and few have more than two zoom levels.
static_assert(sizeof(DocumentState) < 300);

class UndoHistoryTest : public testing::Test {
protected:
    // A version with a work file of that name.
    void Push(const std::string& name) {
        files_->AddFile("/" + name, "sound");
        history_->Push("/" + name, Bytes(0), {});
    }
    // The versions from the oldest to the newest, the current one in brackets.
    std::string Chain() const {
        const DocumentState* state = history_->Current();
        while (state && state->Prev)
            state = state->Prev;
        std::string chain;
        for (int depth = 1; state; state = state->Next.get(), ++depth) {
            EXPECT_EQ(state->Depth, depth);
            const std::string name = state->WorkFilePath.filename().string();
            chain += state == history_->Current() ? "[" + name + "]" : name;
        }
        return chain;
    }
    std::string Files() const {
        std::string names;
        for (const auto& path : files_->Files())
            names += path.filename().string();
        return names;
    }

    std::shared_ptr<platform::MemoryFileSystem> files_ =
        std::make_shared<platform::MemoryFileSystem>();
    std::unique_ptr<UndoHistory> history_ = std::make_unique<UndoHistory>(files_);
};

TEST_F(UndoHistoryTest, StepsBetweenItsEndsAndDropsTheUndoneWithItsFilesAtAPush) {
    EXPECT_FALSE(history_->StepBack() || history_->StepForward());
    for (const char* name : {"a", "b", "c", "d"})
        Push(name);
    EXPECT_FALSE(history_->StepForward());
    EXPECT_TRUE(history_->StepBack() && history_->StepBack());
    EXPECT_EQ(Chain(), "a[b]cd");
    EXPECT_TRUE(history_->StepForward() && history_->StepBack() && history_->StepBack());
    EXPECT_FALSE(history_->StepBack());
    EXPECT_EQ(Chain(), "[a]bcd");
    EXPECT_EQ(Files(), "abcd");
    Push("e");
    EXPECT_EQ(Chain(), "a[e]");
    EXPECT_EQ(Files(), "ae");
}

TEST_F(UndoHistoryTest, KeepsAsManyVersionsAsItsLimit) {
    history_->SetLimit(3);
    for (const char* name : {"a", "b", "c", "d", "e"})
        Push(name);
    EXPECT_EQ(Chain(), "cd[e]");
    EXPECT_EQ(Files(), "cde");
    // A lowered limit shortens nothing by itself: one goes for each that comes.
    history_->SetLimit(2);
    EXPECT_EQ(Chain(), "cd[e]");
    Push("f");
    EXPECT_EQ(Chain(), "de[f]");
    history_->StepBack();
    history_->StepBack();
    Push("g");
    EXPECT_EQ(Chain(), "d[g]");
    EXPECT_EQ(Files(), "dg");
}

TEST_F(UndoHistoryTest, LeavesFilesToItsEndAndDeletesTemporaryOnesOnly) {
    for (const char* name : {"a.tmp", "b.TMP", "c.wav", "d.tmp.x"})
        Push(name);
    history_->FreeChain();
    EXPECT_FALSE(history_->Current() || history_->StepBack());
    Push("e.tmp");
    EXPECT_EQ(Chain(), "[e.tmp]");
    EXPECT_EQ(Files(), "a.tmpb.TMPc.wavd.tmp.xe.tmp");
    history_.reset();
    EXPECT_EQ(Files(), "b.TMPc.wavd.tmp.x");
}

TEST_F(UndoHistoryTest, FreesAChainThatIsLongerThanTheStackIsDeep) {
    history_->SetLimit(10001);
    for (int i = 0; i < 10001; ++i)
        Push("x");
    EXPECT_EQ(history_->Current()->Depth, 10001);
    while (history_->StepBack()) {
    }
    Push("y");
    EXPECT_EQ(history_->Current()->Depth, 2);
}

}  // namespace
}  // namespace mavrin2::editor
