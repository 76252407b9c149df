/* Preloaded into a program, makes one of its calls that change files under a folder fail, as a full or broken disk would.
 *
 * IO_FAULTS_FOLDER  absolute path of the folder
 * IO_FAULTS_LOG     file that gets one line per such call: number, kind, path, and where a rename goes to
 * IO_FAULTS_AT      number of the call that fails; without it all succeed
 * IO_FAULTS_STAYS   when set, the disk stays full: every later call that needs room fails too
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

enum kind { OPEN, WRITE, SYNC, CLOSE, RENAME, MKDIR, TRUNCATE, UNLINK };
static const struct {
    const char * name;
    int error;
    int needs_room;
} kinds[] = {
    { "open", EACCES, 1 },  { "write", ENOSPC, 1 }, { "sync", EIO, 0 },     { "close", EIO, 0 },
    { "rename", EACCES, 0 }, { "mkdir", ENOSPC, 1 }, { "truncate", EIO, 0 }, { "unlink", EACCES, 0 },
};

#define REAL(result, name, ...) ((result(*)(__VA_ARGS__))dlsym(RTLD_NEXT, name))

static int is_watched(const char * path)
{
    const char * folder = getenv("IO_FAULTS_FOLDER");
    return folder != NULL && strncmp(path, folder, strlen(folder)) == 0;
}

/* True when this call is to fail; errno says why. */
static int fails(enum kind kind, const char * path, const char * to)
{
    static int calls = 0;
    const char * at = getenv("IO_FAULTS_AT");
    int wanted = at == NULL ? 0 : atoi(at), number;
    char line[2 * PATH_MAX + 64];
    if (!is_watched(path)) return 0;
    number = __atomic_add_fetch(&calls, 1, __ATOMIC_SEQ_CST);
    int log = REAL(int, "open", const char *, int, ...)(getenv("IO_FAULTS_LOG"), O_WRONLY | O_APPEND | O_CREAT, 0666);
    int size = snprintf(line, sizeof line, "%d\t%s\t%s\t%s\n", number, kinds[kind].name, path, to);
    if (REAL(ssize_t, "write", int, const void *, size_t)(log, line, (size_t)size) != size) abort();
    REAL(int, "close", int)(log);
    if (wanted == 0 || number < wanted) return 0;
    if (number > wanted && (getenv("IO_FAULTS_STAYS") == NULL || !kinds[kind].needs_room)) return 0;
    errno = number == wanted && getenv("IO_FAULTS_STAYS") == NULL ? kinds[kind].error : ENOSPC;
    return 1;
}

static int fails_on(enum kind kind, int descriptor)
{
    char link[64], path[PATH_MAX];
    int error = errno, access = fcntl(descriptor, F_GETFL);
    if (access == -1 || (access & O_ACCMODE) == O_RDONLY) return errno = error, 0;
    snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    ssize_t size = readlink(link, path, sizeof path - 1);
    if (size < 0) return errno = error, 0;
    path[size] = '\0';
    return fails(kind, path, "") ? 1 : (errno = error, 0);
}

static int open_fails(const char * path, int flags) { return (flags & O_ACCMODE) != O_RDONLY && fails(OPEN, path, ""); }

#define OPENING(name)                                                                                                              \
    int name(const char * path, int flags, ...)                                                                                    \
    {                                                                                                                              \
        va_list rest;                                                                                                              \
        va_start(rest, flags);                                                                                                     \
        int mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(rest, int) : 0;                                                          \
        va_end(rest);                                                                                                              \
        return open_fails(path, flags) ? -1 : REAL(int, #name, const char *, int, ...)(path, flags, mode);                          \
    }
OPENING(open)
OPENING(open64)

#define STREAM_OPENING(name)                                                                                                       \
    FILE * name(const char * path, const char * mode)                                                                              \
    {                                                                                                                              \
        return strpbrk(mode, "wa+") != NULL && fails(OPEN, path, "") ? NULL                                                        \
                                                                     : REAL(FILE *, #name, const char *, const char *)(path, mode); \
    }
STREAM_OPENING(fopen)
STREAM_OPENING(fopen64)

ssize_t write(int file, const void * bytes, size_t count)
{
    return fails_on(WRITE, file) ? -1 : REAL(ssize_t, "write", int, const void *, size_t)(file, bytes, count);
}
ssize_t writev(int file, const struct iovec * parts, int count)
{
    return fails_on(WRITE, file) ? -1 : REAL(ssize_t, "writev", int, const struct iovec *, int)(file, parts, count);
}
#define WRITING_AT(name)                                                                                                           \
    ssize_t name(int file, const void * bytes, size_t count, off_t at)                                                             \
    {                                                                                                                              \
        return fails_on(WRITE, file) ? -1 : REAL(ssize_t, #name, int, const void *, size_t, off_t)(file, bytes, count, at);         \
    }
WRITING_AT(pwrite)
WRITING_AT(pwrite64)
#define SENDING(name)                                                                                                              \
    ssize_t name(int to, int from, off_t * at, size_t count)                                                                       \
    {                                                                                                                              \
        return fails_on(WRITE, to) ? -1 : REAL(ssize_t, #name, int, int, off_t *, size_t)(to, from, at, count);                     \
    }
SENDING(sendfile)
SENDING(sendfile64)
ssize_t copy_file_range(int from, off_t * from_at, int to, off_t * to_at, size_t count, unsigned flags)
{
    if (fails_on(WRITE, to)) return -1;
    return REAL(ssize_t, "copy_file_range", int, off_t *, int, off_t *, size_t, unsigned)(from, from_at, to, to_at, count, flags);
}
size_t fwrite(const void * items, size_t size, size_t count, FILE * file)
{
    /* Half of it gets through, as happens on a disk that fills up. */
    int failing = fails_on(WRITE, fileno(file)), error = errno;
    size_t done =
        REAL(size_t, "fwrite", const void *, size_t, size_t, FILE *)(items, size, failing ? count / 2 : count, file);
    return failing ? (errno = error, done) : done;
}
int fsync(int file) { return fails_on(SYNC, file) ? -1 : REAL(int, "fsync", int)(file); }
int fdatasync(int file) { return fails_on(SYNC, file) ? -1 : REAL(int, "fdatasync", int)(file); }
/* A descriptor that only holds a lock brings no bytes to the disk when it is closed. */
enum { MOST_FILES = 1024 };
static char is_lock[MOST_FILES];
int flock(int file, int operation)
{
    if (file >= 0 && file < MOST_FILES) is_lock[file] = 1;
    return REAL(int, "flock", int, int)(file, operation);
}
static int close_fails(int file)
{
    if (file < 0 || file >= MOST_FILES || !is_lock[file]) return fails_on(CLOSE, file);
    return is_lock[file] = 0;
}
/* A close that fails has closed all the same. */
int close(int file)
{
    int failing = close_fails(file), error = errno, result = REAL(int, "close", int)(file);
    return failing ? (errno = error, -1) : result;
}
int fclose(FILE * file)
{
    int failing = fails_on(CLOSE, fileno(file)), error = errno, result = REAL(int, "fclose", FILE *)(file);
    return failing ? (errno = error, EOF) : result;
}
int rename(const char * from, const char * to)
{
    return fails(RENAME, from, to) ? -1 : REAL(int, "rename", const char *, const char *)(from, to);
}
int mkdir(const char * path, mode_t mode)
{
    return fails(MKDIR, path, "") ? -1 : REAL(int, "mkdir", const char *, mode_t)(path, mode);
}
#define TRUNCATING(name)                                                                                                           \
    int name(int file, off_t size) { return fails_on(TRUNCATE, file) ? -1 : REAL(int, #name, int, off_t)(file, size); }
TRUNCATING(ftruncate)
TRUNCATING(ftruncate64)
int unlink(const char * path) { return fails(UNLINK, path, "") ? -1 : REAL(int, "unlink", const char *)(path); }
int remove(const char * path) { return fails(UNLINK, path, "") ? -1 : REAL(int, "remove", const char *)(path); }
