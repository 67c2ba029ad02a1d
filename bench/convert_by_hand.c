#define _POSIX_C_SOURCE 200809L
/* The conversions of bench/compare as a careful C programmer writes them for one purpose: a filter
 * from a file to an administrator's import script, with the calls of the C library that are
 * vectorised (memchr, memcpy) and large blocks for input and output.
 *
 *   convert_by_hand delimited|directory|mailserver SOURCE SCRIPT
 *
 * Exits with 0, or with 1 if a file cannot be opened, read or written. A line of more than
 * BLOCK_SIZE bytes is an error. Prints the processor time of the conversion in nanoseconds. */

#include <fcntl.h>
#include <stdbool.h>
#include <stdio.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

enum { BLOCK_SIZE = 128 * 1024, NAME_WIDTH = 31, ADDRESS_WIDTH = 255 };

struct text {
  const char* begin;
  size_t size;
};

struct input {
  int file;
  char* next;
  char* end;
  bool at_end;
  char bytes[2 * BLOCK_SIZE];
};

struct output {
  int file;
  size_t used;
  char bytes[BLOCK_SIZE];
};

static struct input in;
static struct output out;

/* Moves the rest of a line to the front and reads a block after it. */
static bool refill(void) {
  const size_t kept = (size_t)(in.end - in.next);
  if (kept > BLOCK_SIZE) return false;
  memmove(in.bytes, in.next, kept);
  const ssize_t count = read(in.file, in.bytes + kept, BLOCK_SIZE);
  in.next = in.bytes;
  in.end = in.bytes + kept + (count > 0 ? count : 0);
  in.at_end = count <= 0;
  return count >= 0;
}

/* Finds the next line, without its newline. Returns false at the end. */
static bool next_line(struct text* line) {
  char* newline = memchr(in.next, '\n', (size_t)(in.end - in.next));
  while (newline == NULL && !in.at_end) {
    if (!refill()) return false;
    newline = memchr(in.next, '\n', (size_t)(in.end - in.next));
  }
  if (newline == NULL) newline = in.end;
  if (in.next == in.end) return false;
  *line = (struct text){in.next, (size_t)(newline - in.next)};
  in.next = newline < in.end ? newline + 1 : in.end;
  return true;
}

static bool flush(void) {
  for (size_t written = 0; written < out.used;) {
    const ssize_t count = write(out.file, out.bytes + written, out.used - written);
    if (count < 0) return false;
    written += (size_t)count;
  }
  out.used = 0;
  return true;
}

static char* put(char* at, struct text text, size_t width) {
  const size_t size = text.size < width ? text.size : width;
  memcpy(at, text.begin, size);
  return at + size;
}

static bool write_entry(struct text name, struct text address) {
  if (BLOCK_SIZE - out.used < 512 && !flush()) return false;
  char* at = out.bytes + out.used;
  at = put(at, (struct text){"SE emailab \"", 12}, 12);
  at = put(at, name, NAME_WIDTH);
  at = put(at, (struct text){"\" \"", 3}, 3);
  at = put(at, address, ADDRESS_WIDTH);
  *at++ = '"';
  *at++ = '\n';
  out.used = (size_t)(at - out.bytes);
  return true;
}

/* Splits the next field off a line. Quotes around a field are removed. */
static struct text next_field(struct text* line) {
  const char* const end = line->begin + line->size;
  struct text field = {line->begin, 0};
  const char* comma = line->begin;
  if (line->size != 0 && *line->begin == '"') {
    ++field.begin;
    const char* quote = memchr(field.begin, '"', (size_t)(end - field.begin));
    if (quote == NULL) quote = end;
    field.size = (size_t)(quote - field.begin);
    comma = memchr(quote, ',', (size_t)(end - quote));
  } else {
    comma = memchr(line->begin, ',', line->size);
    field.size = (size_t)((comma != NULL ? comma : end) - line->begin);
  }
  const char* const rest = comma != NULL ? comma + 1 : end;
  *line = (struct text){rest, (size_t)(end - rest)};
  return field;
}

static bool convert_delimited(void) {
  for (struct text line; next_line(&line);) {
    if (line.size == 0) continue;
    const struct text name = next_field(&line);
    if (!write_entry(name, next_field(&line))) return false;
  }
  return true;
}

static bool begins_with(struct text line, const char* mark, size_t size) {
  return line.size >= size && memcmp(line.begin, mark, size) == 0;
}

/* The width counts the spaces before the value, too. */
static struct text value_after(struct text line, size_t mark, size_t width) {
  line.begin += mark;
  line.size = line.size - mark < width ? line.size - mark : width;
  while (line.size != 0 && *line.begin == ' ') ++line.begin, --line.size;
  return line;
}

static size_t copy_value(char* to, struct text line, size_t mark, size_t width) {
  const struct text value = value_after(line, mark, width);
  memcpy(to, value.begin, value.size);
  return value.size;
}

/* The values of an entry are copied, because a block can end inside it. */
static bool convert_directory(void) {
  static char names[NAME_WIDTH], addresses[ADDRESS_WIDTH];
  struct text name = {names, 0}, address = {addresses, 0};
  bool is_open = false;
  for (struct text line; next_line(&line);) {
    if (begins_with(line, "dn:", 3)) {
      is_open = true;
      name.size = address.size = 0;
    } else if (!is_open) {
      continue;
    } else if (name.size == 0 && begins_with(line, "cn:", 3)) {
      name.size = copy_value(names, line, 3, NAME_WIDTH);
    } else if (address.size == 0 && begins_with(line, "mail:", 5)) {
      address.size = copy_value(addresses, line, 5, ADDRESS_WIDTH);
    }
    if (name.size == 0 || address.size == 0) continue;
    if (!write_entry(name, address)) return false;
    is_open = false;
    name.size = address.size = 0;
  }
  return true;
}

/* The address after "SMTP:", up to a percent sign, a comma or a quote. */
static struct text find_address(struct text line) {
  const char* const end = line.begin + line.size;
  const char* at = line.begin;
  while ((at = memchr(at, 'S', (size_t)(end - at))) != NULL) {
    if (end - at >= 5 && memcmp(at, "SMTP:", 5) == 0) break;
    ++at;
  }
  if (at == NULL) return (struct text){NULL, 0};
  struct text address = {at + 5, 0};
  const char* stop = address.begin;
  while (stop < end && *stop != '%' && *stop != ',' && *stop != '"') ++stop;
  address.size = (size_t)(stop - address.begin);
  return address;
}

static bool convert_mail_server(void) {
  for (struct text line; next_line(&line);) {
    if (!begins_with(line, "Mailbox,", 8)) continue;
    struct text name = {NULL, 0};
    for (int i = 0; i < 4; ++i) name = next_field(&line);
    const struct text address = find_address(line);
    if (address.begin != NULL && !write_entry(name, address)) return false;
  }
  return true;
}

static bool convert(const char* format) {
  if (strcmp(format, "delimited") == 0) return convert_delimited();
  if (strcmp(format, "directory") == 0) return convert_directory();
  return convert_mail_server();
}

static double processor_time(void) {
  struct timespec time;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return 1e9 * (double)time.tv_sec + (double)time.tv_nsec;
}

int main(int argc, char** argv) {
  if (argc != 4) {
    fputs("usage: convert_by_hand delimited|directory|mailserver SOURCE SCRIPT\n", stderr);
    return 2;
  }
  in.next = in.end = in.bytes;
  const double start = processor_time();
  in.file = open(argv[2], O_RDONLY);
  out.file = open(argv[3], O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (in.file < 0 || out.file < 0) return 1;
  const bool is_converted = convert(argv[1]) && flush() && close(out.file) == 0;
  printf("%.0f\n", processor_time() - start);
  return is_converted ? 0 : 1;
}
