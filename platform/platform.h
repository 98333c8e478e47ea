#pragma once

namespace tessarine {

class Alert;
class Console;
class Files;
class OpenPanel;
class Pictures;
class Workspace;

// The adapters that a host has chosen, which must outlive every use. Not an interface of its own:
// each port stays small and is replaced by itself.
struct Platform {
  Pictures& pictures;
  Files& files;
  OpenPanel& openPanel;
  Workspace& workspace;
  Console& console;
  Alert& alert;
};

}  // namespace tessarine
