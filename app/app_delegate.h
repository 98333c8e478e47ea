#pragma once

namespace tessarine {

// Answers the questions of the application's life. There is nothing to do at launch or quit.
class AppDelegate {
 public:
  void applicationDidFinishLaunching() {}
  void applicationWillTerminate() {}
  bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }
};

}  // namespace tessarine
