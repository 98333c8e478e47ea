#include "tests/faults/fault.h"

#include <stdlib.h>

#include <fstream>

#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

std::string Fault::label() const {
  return std::string(kind.name) + " at call " + std::to_string(at) + (onward ? " and on" : "");
}

FaultedRun runWithFault(const std::vector<std::string>& arguments, const Fault& fault,
                        bool unnamedFiles) {
  const TemporaryFolder folder;
  const std::string report = folder.path() / "report";
  FaultedRun run;
  run.outcome = runProgram(arguments, [&] {
    ::setenv("LD_PRELOAD", FAULT_SHIM, 1);
    ::setenv("FAULT_KIND", fault.kind.code.c_str(), 1);
    ::setenv("FAULT_AT", std::to_string(fault.at).c_str(), 1);
    if (fault.onward) ::setenv("FAULT_ONWARD", "1", 1);
    if (!unnamedFiles) ::setenv("FAULT_NAMED", "1", 1);
    ::setenv("FAULT_REPORT", report.c_str(), 1);
  });
  std::ifstream(report) >> run.met >> run.disturbed;
  return run;
}

}  // namespace tessarine::testing
