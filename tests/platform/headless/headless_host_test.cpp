#include "platform/headless/headless_host.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

namespace {

namespace fs = std::filesystem;

OpenPanelAnswer answerFor(const fs::path& folder) {
  return FolderArgument(folder).runModal({});
}

}  // namespace

TEST(FolderArgument, IsCreatedWhenMissing) {
  const TemporaryFolder root;
  const fs::path folder = root.path() / "not yet/there";
  const OpenPanelAnswer answer = answerFor(folder);
  EXPECT_EQ(answer.response, PanelResponse::confirmed);
  EXPECT_EQ(answer.path, folder.string());
  EXPECT_TRUE(fs::is_directory(folder));
}

TEST(FolderArgument, KeepsWhatAFolderHolds) {
  const TemporaryFolder root;
  writeFile(root.path() / "notes.txt", "mine");
  answerFor(root.path());
  EXPECT_EQ(contentsOf(root.path() / "notes.txt"), "mine");
}

TEST(FolderArgument, IsTheAnswerThoughItCannotBeCreated) {
  const TemporaryFolder root;
  writeFile(root.path() / "file", "in the way");
  const OpenPanelAnswer answer = answerFor(root.path() / "file/below");
  EXPECT_EQ(answer.response, PanelResponse::confirmed);
  EXPECT_EQ(answer.path, (root.path() / "file/below").string());
}

TEST(StandardErrorAlert, PrintsTheMessageAlone) {
  ::testing::internal::CaptureStderr();
  StandardErrorAlert().runWarning("Type a name.", "OK");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Type a name.\n");
}

}  // namespace tessarine::testing
