#include "headless/commands.h"

#include <cstdio>
#include <functional>
#include <numeric>
#include <optional>

#include "custom/custom_icon_generator.h"
#include "custom/form_validation.h"
#include "headless/argument_form.h"
#include "headless/monitored_files.h"
#include "headless/usage.h"
#include "iconsets/icon_set_generator.h"
#include "intake/icon_info.h"
#include "platform/headless/headless_host.h"
#include "platform/platform.h"
#include "platform/posix/granted_files.h"
#include "platform/posix/granting_panel.h"
#include "platform/posix/one_line.h"
#include "platform/posix/standard_console.h"
#include "platform/vips/decoder.h"
#include "platform/vips/vips_pictures.h"

namespace tessarine {

namespace {

void complain(const std::string& reason) {
  std::fprintf(stderr, "%s: %s\n", programName, reason.c_str());
}

// The record of a picture file, as a drop of that file makes it; nothing, and the reason on
// standard error, when it cannot be read.
std::optional<IconInfo> readPicture(Pictures& pictures, const std::string& path) {
  const Decoded decoded = decodePictureFile(path);
  IconInfo iconInfo;
  if (decoded.picture) iconInfo.imageData = pictures.tiffRepresentation(*decoded.picture);
  if (iconInfo.imageData) return iconInfo;
  const std::string reason = decoded.picture ? "not enough memory" : decoded.refusal;
  complain("cannot read the picture \"" + oneLine(path) + "\": " + reason);
  return std::nullopt;
}

std::size_t fileCount(const IconSet& set) {
  return set.names.size() + (set.contentsJSON ? 1 : 0);
}

// The adapters of a run without a screen.
class Host {
 public:
  explicit Host(std::size_t files) : files_(granted_, files) {}

  VipsPictures pictures;

  ExitStatus status() const {
    return files_.failures() == 0 ? ExitStatus::written : ExitStatus::incomplete;
  }
  // Runs `generate` on a platform whose folder question is answered with `folder`.
  void into(const std::string& folder, const std::function<void(Platform&)>& generate) {
    FolderArgument argument(folder);
    GrantingPanel panel(argument, granted_);
    Platform platform{pictures, files_, panel, workspace_, console_, alert_};
    generate(platform);
  }

 private:
  GrantedFiles granted_;
  MonitoredFiles files_;
  NoWorkspace workspace_;
  StandardConsole console_;
  StandardErrorAlert alert_;
};

}  // namespace

ExitStatus run(const ShowHelp&) {
  StandardConsole().printLine(usage);
  return ExitStatus::written;
}

ExitStatus run(const ShowVersion&) {
  StandardConsole().printLine(std::string(programName) + " " + TESSARINE_VERSION);
  return ExitStatus::written;
}

ExitStatus run(const WrongUsage& command) {
  complain(oneLine(command.reason) + "; --help shows the usage");
  return ExitStatus::refused;
}

ExitStatus run(const CutSets& command) {
  std::size_t files = 0;
  for (const CutSets::Target& target : command.targets) files += fileCount(*target.set);
  Host host(files);
  const auto iconInfo = readPicture(host.pictures, command.picture);
  if (!iconInfo) return ExitStatus::refused;
  for (const CutSets::Target& target : command.targets) {
    host.into(target.folder,
              [&](Platform& platform) { generateIconSet(platform, *iconInfo, *target.set); });
  }
  return host.status();
}

ExitStatus run(const CutCustom& command) {
  Host host(command.rows.size());
  const ArgumentForm arguments(command.rows);
  ExitStatus status = ExitStatus::refused;
  host.into(command.folder, [&](Platform& platform) {
    if (!validateForm(platform, arguments.form())) return;
    const auto iconInfo = readPicture(host.pictures, command.picture);
    if (!iconInfo) return;
    generateCustomIcons(platform, *iconInfo, arguments.form());
    status = host.status();
  });
  return status;
}

}  // namespace tessarine
