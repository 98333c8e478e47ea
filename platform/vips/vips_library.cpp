#include "platform/vips/vips_library.h"

#include "platform/vips/formats.h"

namespace tessarine {

namespace {

GLogWriterOutput saysNothing(GLogLevelFlags, const GLogField*, gsize, gpointer) {
  return G_LOG_WRITER_HANDLED;
}

GType loaderType(const char* nickname) {
  return vips_type_find("VipsForeignLoad", nickname);
}

bool start() {
  // Before the start, which may itself complain about modules.
  g_log_set_writer_func(saysNothing, nullptr, nullptr);
  if (VIPS_INIT("tessarine") != 0) return false;
  vips_concurrency_set(1);
  vips_cache_set_max(0);
  // libvips tries every loader that recognises the bytes; what is not on our list must not even
  // be reachable from inside another loader.
  vips_operation_block_set("VipsForeignLoad", TRUE);
  for (const Format& format : formats()) {
    if (const GType type = loaderType(format.loader); type != 0) {
      vips_operation_block_set(g_type_name(type), FALSE);
    }
  }
  return true;
}

}  // namespace

bool startVips() {
  static const bool started = start();
  return started;
}

bool hasLoader(const char* nickname) {
  return loaderType(nickname) != 0;
}

}  // namespace tessarine
