// Decodes as the program does, with a library that prints how far it is.
#include <vips/vips.h>

#include <cstdio>

#include "platform/isolation/decoding_main.h"

int main(int argc, char** argv) {
  // What stays in a buffer would be lost at the end.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  vips_progress_set(TRUE);
  tessarine::decodeIfAsked(argc, argv);
}
