// Preloaded into the program: numbers its large requests for memory and refuses some of them.
//   MEMORY_AT      the number of the request to refuse, from 1 on
//   MEMORY_ONWARD  every request from there on, when set
//   MEMORY_REPORT  the file of an int, the number of requests met; it is there after any end
#include <fcntl.h>
#include <sys/mman.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>

extern "C" {
// glibc's own, to be called from the functions that take their names here.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

// What a picture's size decides, and not a library's own needs.
constexpr std::size_t large = std::size_t{64} * 1024;

int* openReport() {
  const char* path = std::getenv("MEMORY_REPORT");
  const int file = path == nullptr ? -1 : ::open(path, O_RDWR | O_CLOEXEC);
  void* memory = ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  return memory == MAP_FAILED ? nullptr : static_cast<int*>(memory);
}

const bool onward = std::getenv("MEMORY_ONWARD") != nullptr;
int* const met = openReport();

bool refused(std::size_t size) {
  if (size < large || met == nullptr) return false;
  ++*met;
  const int number = std::atoi(std::getenv("MEMORY_AT"));
  if (onward ? *met < number : *met != number) return false;
  errno = ENOMEM;
  return true;
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) {
  return refused(size) ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
  const bool overflows = size != 0 && count > static_cast<std::size_t>(-1) / size;
  return !overflows && refused(count * size) ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) {
  return refused(size) ? nullptr : __libc_realloc(memory, size);
}

void* memalign(std::size_t alignment, std::size_t size) {
  return refused(size) ? nullptr : __libc_memalign(alignment, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  void* const given = memalign(alignment, size);
  if (given == nullptr) return ENOMEM;
  *memory = given;
  return 0;
}

}  // extern "C"
