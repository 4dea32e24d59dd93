"""A few headers in the order of Haiku's, with no more than what the tests of platform_headers and the C++ library ask for."""

HEADERS = {
    "config/types.h": """
        #ifdef __x86_64__
        typedef int __haiku_int32; typedef unsigned int __haiku_uint32;
        #else
        typedef long __haiku_int32; typedef unsigned long __haiku_uint32;
        #endif
        """,
    "os/support/SupportDefs.h": """
        #include <config/types.h>
        #include <sys/types.h>
        typedef __haiku_int32 int32; typedef __haiku_uint32 uint32; typedef int32 status_t;
        """,
    "os/support/Errors.h": "#define B_ERROR (-1)\n#define B_BAD_VALUE (-2)\n",
    "os/app/Message.h": """
        #include <SupportDefs.h>
        class BMessage {
        public:
            const void* GetPointer(const char* name, const void* defaultValue = 0) const;
            const void* GetPointer(const char* name, int32 index, const void* defaultValue = 0) const;
        };
        """,
    "os/interface/ListView.h": """
        #include <SupportDefs.h>
        class BListItem;
        class BListView {
        public:
            bool RemoveItem(BListItem* item);
            BListItem* RemoveItem(int32 index);
        };
        """,
    "os/private/Secret.h": "",
    "private/shared/Secret.h": "",
    "compatibility/bsd/features.h": "#define BSD_CAME_FIRST 1\n",
    "compatibility/bsd/string.h": "#include_next <string.h>\n#include <features.h>\n",
    "posix/sys/types.h": "typedef long ssize_t; typedef long off_t; typedef long time_t; typedef int clockid_t;\n",
    "posix/stdint.h": """
        typedef __INT8_TYPE__ int8_t; typedef __INT16_TYPE__ int16_t; typedef __INT32_TYPE__ int32_t;
        typedef __INT64_TYPE__ int64_t; typedef __UINT8_TYPE__ uint8_t; typedef __UINT16_TYPE__ uint16_t;
        typedef __UINT32_TYPE__ uint32_t; typedef __UINT64_TYPE__ uint64_t;
        typedef int8_t int_least8_t; typedef int16_t int_least16_t; typedef int32_t int_least32_t;
        typedef int64_t int_least64_t; typedef uint8_t uint_least8_t; typedef uint16_t uint_least16_t;
        typedef uint32_t uint_least32_t; typedef uint64_t uint_least64_t;
        typedef int8_t int_fast8_t; typedef int16_t int_fast16_t; typedef int32_t int_fast32_t;
        typedef int64_t int_fast64_t; typedef uint8_t uint_fast8_t; typedef uint16_t uint_fast16_t;
        typedef uint32_t uint_fast32_t; typedef uint64_t uint_fast64_t;
        typedef __INTPTR_TYPE__ intptr_t; typedef __UINTPTR_TYPE__ uintptr_t;
        typedef int64_t intmax_t; typedef uint64_t uintmax_t;
        """,
    "posix/errno.h": "int* _errnop(void);\n#define errno (*_errnop())\n" + "\n".join(
        f"#define {name} ({-1000 - number})" for number, name in enumerate("""
        E2BIG EACCES EADDRINUSE EADDRNOTAVAIL EAFNOSUPPORT EAGAIN EALREADY EBADF EBUSY ECHILD ECONNABORTED
        ECONNREFUSED ECONNRESET EDEADLK EDESTADDRREQ EDOM EEXIST EFAULT EFBIG EHOSTUNREACH EILSEQ EINPROGRESS EINTR EINVAL
        EIO EISCONN EISDIR ELOOP EMFILE EMLINK EMSGSIZE ENAMETOOLONG ENETDOWN ENETRESET ENETUNREACH ENFILE ENOBUFS ENODEV
        ENOENT ENOEXEC ENOLCK ENOMEM ENOMSG ENOPROTOOPT ENOSPC ENOSYS ENOTCONN ENOTDIR ENOTEMPTY
        ENOTSOCK ENOTTY ENXIO EOPNOTSUPP EPERM EPIPE EPROTOTYPE EPROTONOSUPPORT
        ERANGE EROFS ESPIPE ESRCH ETIMEDOUT EWOULDBLOCK EXDEV""".split())) + "\n",
    "posix/string.h": """
        #include <stddef.h>
        extern "C" {
        void* memchr(const void*, int, size_t); int memcmp(const void*, const void*, size_t);
        void* memcpy(void*, const void*, size_t); void* memmove(void*, const void*, size_t); void* memset(void*, int, size_t);
        char* strcpy(char*, const char*); char* strncpy(char*, const char*, size_t); char* strcat(char*, const char*);
        char* strncat(char*, const char*, size_t); size_t strlen(const char*); int strcmp(const char*, const char*);
        int strncmp(const char*, const char*, size_t); char* strchr(const char*, int); char* strrchr(const char*, int);
        char* strstr(const char*, const char*); char* strpbrk(const char*, const char*); char* strtok(char*, const char*);
        size_t strspn(const char*, const char*); size_t strcspn(const char*, const char*); char* strerror(int);
        int strcoll(const char*, const char*); size_t strxfrm(char*, const char*, size_t);
        }
        """,
    "posix/stdlib.h": """
        #include <stddef.h>
        typedef struct { int quot, rem; } div_t; typedef struct { long quot, rem; } ldiv_t;
        extern "C" {
        void abort(void); int abs(int); long labs(long); int atexit(void (*)(void)); double atof(const char*); int atoi(const char*);
        long atol(const char*); void* bsearch(const void*, const void*, size_t, size_t, int (*)(const void*, const void*));
        void* calloc(size_t, size_t); div_t div(int, int); ldiv_t ldiv(long, long); void exit(int); void free(void*);
        char* getenv(const char*); void* malloc(size_t); int mblen(const char*, size_t); int mbtowc(wchar_t*, const char*, size_t);
        size_t mbstowcs(wchar_t*, const char*, size_t); size_t wcstombs(char*, const wchar_t*, size_t); int wctomb(char*, wchar_t);
        void qsort(void*, size_t, size_t, int (*)(const void*, const void*)); int rand(void); void srand(unsigned);
        void* realloc(void*, size_t); double strtod(const char*, char**); long strtol(const char*, char**, int);
        unsigned long strtoul(const char*, char**, int); int system(const char*);
        }
        """,
    "posix/stdio.h": """
        #include <stdarg.h>
        #include <stddef.h>
        typedef struct _FILE FILE; typedef long fpos_t;
        extern "C" {
        void clearerr(FILE*); int fclose(FILE*); int feof(FILE*); int ferror(FILE*); int fflush(FILE*); int fgetc(FILE*);
        int fgetpos(FILE*, fpos_t*); char* fgets(char*, int, FILE*); FILE* fopen(const char*, const char*);
        int fprintf(FILE*, const char*, ...); int fputc(int, FILE*); int fputs(const char*, FILE*);
        size_t fread(void*, size_t, size_t, FILE*); FILE* freopen(const char*, const char*, FILE*); int fscanf(FILE*, const char*, ...);
        int fseek(FILE*, long, int); int fsetpos(FILE*, const fpos_t*); long ftell(FILE*);
        size_t fwrite(const void*, size_t, size_t, FILE*); int getc(FILE*); int getchar(void); void perror(const char*);
        int printf(const char*, ...); int putc(int, FILE*); int putchar(int); int puts(const char*); int remove(const char*);
        int rename(const char*, const char*); void rewind(FILE*); int scanf(const char*, ...); void setbuf(FILE*, char*);
        int setvbuf(FILE*, char*, int, size_t); int sprintf(char*, const char*, ...); int sscanf(const char*, const char*, ...);
        FILE* tmpfile(void); char* tmpnam(char*); int ungetc(int, FILE*); int vfprintf(FILE*, const char*, va_list);
        int vprintf(const char*, va_list); int vsprintf(char*, const char*, va_list);
        }
        """,
    "posix/wchar.h": "#include <stddef.h>\ntypedef int wint_t; typedef struct { int state; } mbstate_t;\n",
    "posix/ctype.h": "extern \"C\" {\n" + " ".join(f"int {name}(int);" for name in """
        isalnum isalpha iscntrl isdigit isgraph islower isprint ispunct isspace isupper isxdigit tolower toupper""".split()) + "\n}\n",
    "posix/locale.h": """
        struct lconv; extern "C" { char* setlocale(int, const char*); struct lconv* localeconv(void); }
        """,
    "posix/math.h": 'extern "C" {\n' + " ".join(f"double {name}(double);" for name in """
        acos asin atan ceil cos cosh exp fabs floor log log10 sin sinh sqrt tan tanh""".split()) + """
        double atan2(double, double); double fmod(double, double); double frexp(double, int*); double ldexp(double, int);
        double modf(double, double*); double pow(double, double);
        }
        """,
    "posix/time.h": """
        #include <stddef.h>
        #include <sys/types.h>
        typedef long clock_t; struct timespec { time_t tv_sec; long tv_nsec; }; struct tm;
        extern "C" {
        clock_t clock(void); double difftime(time_t, time_t); time_t mktime(struct tm*); time_t time(time_t*);
        char* asctime(const struct tm*); char* ctime(const time_t*); struct tm* gmtime(const time_t*);
        struct tm* localtime(const time_t*); size_t strftime(char*, size_t, const char*, const struct tm*);
        }
        """,
    "posix/sched.h": 'extern "C" int sched_yield(void);\n',
    "posix/unistd.h": "#include <sys/types.h>\n",
    "posix/pthread.h": """
        #include <sched.h>
        #include <time.h>
        typedef struct _pthread* pthread_t; typedef int pthread_key_t;
        typedef struct { int state; } pthread_once_t; typedef struct { int state; } pthread_mutex_t;
        typedef struct { int state; } pthread_cond_t; typedef struct { int state; } pthread_mutexattr_t;
        typedef struct { int state; } pthread_attr_t; typedef struct { int state; } pthread_condattr_t;
        #define PTHREAD_ONCE_INIT { 0 }
        #define PTHREAD_MUTEX_INITIALIZER { 0 }
        #define PTHREAD_COND_INITIALIZER { 0 }
        #define PTHREAD_MUTEX_RECURSIVE 3
        extern "C" {
        int pthread_create(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*); int pthread_join(pthread_t, void**);
        int pthread_detach(pthread_t); int pthread_equal(pthread_t, pthread_t); pthread_t pthread_self(void);
        int pthread_once(pthread_once_t*, void (*)(void)); int pthread_key_create(pthread_key_t*, void (*)(void*));
        int pthread_key_delete(pthread_key_t); void* pthread_getspecific(pthread_key_t);
        int pthread_setspecific(pthread_key_t, const void*); int pthread_mutex_init(pthread_mutex_t*, const pthread_mutexattr_t*);
        int pthread_mutex_destroy(pthread_mutex_t*); int pthread_mutex_lock(pthread_mutex_t*);
        int pthread_mutex_trylock(pthread_mutex_t*); int pthread_mutex_unlock(pthread_mutex_t*);
        int pthread_mutexattr_init(pthread_mutexattr_t*); int pthread_mutexattr_settype(pthread_mutexattr_t*, int);
        int pthread_mutexattr_destroy(pthread_mutexattr_t*); int pthread_cond_init(pthread_cond_t*, const pthread_condattr_t*);
        int pthread_cond_destroy(pthread_cond_t*); int pthread_cond_wait(pthread_cond_t*, pthread_mutex_t*);
        int pthread_cond_timedwait(pthread_cond_t*, pthread_mutex_t*, const struct timespec*);
        int pthread_cond_signal(pthread_cond_t*); int pthread_cond_broadcast(pthread_cond_t*);
        }
        """,
}


def write_headers(folder):
    for name, text in HEADERS.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("#pragma once\n" + text, encoding="utf-8")
