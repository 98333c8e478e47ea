#include <string_view>
#include <variant>
#include <vector>

#include "headless/command_line.h"
#include "headless/commands.h"
#include "platform/isolation/decoding_main.h"
#include "platform/posix/process.h"

int main(int argc, char** argv) {
  using namespace tessarine;
  setUpProcess();
  decodeIfAsked(argc, argv);
  const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  const Command command = parseCommandLine(arguments);
  return static_cast<int>(std::visit([](const auto& parsed) { return run(parsed); }, command));
}
