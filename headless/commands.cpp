#include "headless/commands.h"

#include "custom/custom_icon_generator.h"
#include "custom/form_validation.h"
#include "headless/argument_form.h"
#include "headless/complaint.h"
#include "headless/monitored_files.h"
#include "headless/picture_intake.h"
#include "headless/usage.h"
#include "iconsets/icon_set_generator.h"
#include "platform/headless/headless_host.h"
#include "platform/isolation/isolated_pictures.h"
#include "platform/platform.h"
#include "platform/posix/granted_files.h"
#include "platform/posix/granting_panel.h"
#include "platform/posix/one_line.h"
#include "platform/posix/standard_console.h"

namespace tessarine {

namespace {

// The adapters of a run without a screen.
class Host {
 public:
  explicit Host(std::size_t files) : files_(granted_, files) {}

  IsolatedPictures pictures;

  ExitStatus status() const {
    return files_.complete() ? ExitStatus::written : ExitStatus::incomplete;
  }
  // What `generate` answers on a platform whose folder question is answered with `folder`.
  template <class Generate>
  auto into(const std::string& folder, const Generate& generate) {
    FolderArgument argument(folder);
    GrantingPanel panel(argument, granted_);
    Platform platform{pictures, files_, panel, workspace_, console_, alert_};
    return generate(platform);
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
  const auto iconInfo = takeIn(host.pictures, command.picture, command.folder);
  if (!iconInfo) return ExitStatus::refused;
  for (const CutSets::Target& target : command.targets) {
    host.into(target.folder,
              [&](Platform& platform) { generateIconSet(platform, *iconInfo, *target.set); });
  }
  return host.status();
}

ExitStatus run(const CutCustom& command) {
  const ArgumentForm arguments(command.rows);
  Host host(command.rows.size());
  return host.into(command.folder, [&](Platform& platform) {
    if (!validateForm(platform, arguments.form())) return ExitStatus::refused;
    const auto iconInfo = takeIn(host.pictures, command.picture, command.folder);
    if (!iconInfo) return ExitStatus::refused;
    generateCustomIcons(platform, *iconInfo, arguments.form());
    return host.status();
  });
}

}  // namespace tessarine
