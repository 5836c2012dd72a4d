/* What a call through the remote driver costs beside the bare exchange: vx_watchdog_get as a driver function, and the
   document that it sends over a socket of this program's own, its answer read to the last byte and thrown away. They
   take turns, call by call, so that whatever else the machine does meets both. Prints the medians in us, and their
   ratio.

       remote HOST PORT CALLS [only]     "only" makes driver calls alone, for counting instructions */
#include <arpa/inet.h>
#include <lmq/lmq.h>
#include <lmq/remote.h>
#include <netinet/tcp.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

static const char document[] =
    "<?xml version=\"1.0\"?><methodCall><methodName>lmq.vx_watchdog_get</methodName><params><param><value><i4>0</i4>"
    "</value></param><param><value><struct></struct></value></param></params></methodCall>";

static void fail(const char *what) {
    fprintf(stderr, "remote: %s\n", what);
    exit(1);
}

static double now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec * 1e6 + (double)time.tv_nsec / 1e3;
}

static int connected(const char *host, const char *port) {
    struct sockaddr_in address = {.sin_family = AF_INET, .sin_port = htons((unsigned short)atoi(port))};
    const int on = 1, made = socket(AF_INET, SOCK_STREAM, 0);
    if (inet_pton(AF_INET, host, &address.sin_addr) != 1) fail("no address");
    if (connect(made, (struct sockaddr *)&address, sizeof address) != 0) fail("cannot connect");
    setsockopt(made, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return made;
}

static void exchange(int line, const char *request, size_t size) {
    static char answer[1 << 16];
    size_t got = 0, whole = sizeof answer;
    if (send(line, request, size, 0) != (ssize_t)size) fail("cannot send");
    while (got < whole) {
        const ssize_t more = recv(line, answer + got, sizeof answer - 1 - got, 0);
        if (more <= 0) fail("no answer");
        got += (size_t)more;
        answer[got] = '\0';
        const char *const end = strstr(answer, "\r\n\r\n"), *const length = strstr(answer, "Content-Length: ");
        if (end && length) whole = (size_t)(end + 4 - answer) + (size_t)atoi(length + 16);
    }
}

static int compare(const void *left, const void *right) {
    const double a = *(const double *)left, b = *(const double *)right;
    return (a > b) - (a < b);
}

int main(int count, char **words) {
    if (count < 4) fail("remote HOST PORT CALLS [only]");
    char url[200], request[1000];
    snprintf(url, sizeof url, "http://%s:%s/RPC2", words[1], words[2]);
    const int calls = atoi(words[3]), only = count > 4;
    const lmq_remote_options_t options = {.url = url};
    if (lmq_remote_connect(&options) != 0) fail(lmq_remote_error());
    snprintf(request, sizeof request,
             "POST /RPC2 HTTP/1.1\r\nHost: %s:%s\r\nUser-Agent: liblmq\r\nContent-Type: text/xml\r\nContent-Length: "
             "%zu\r\n\r\n%s",
             words[1], words[2], sizeof document - 1, document);
    const int line = only ? -1 : connected(words[1], words[2]);
    double *const driver = calloc((size_t)calls, sizeof *driver), *const bare = calloc((size_t)calls, sizeof *bare);
    for (int i = 0; i < calls; ++i) {
        vx_watchdog_cfg_t config;
        const double begin = now();
        if (vx_watchdog_get(0, &config) >> 8 == LMQ_REMOTE_NOT_SENT >> 8) fail(lmq_remote_error());
        const double between = now();
        if (!only) exchange(line, request, strlen(request));
        driver[i] = between - begin;
        bare[i] = now() - between;
    }
    qsort(driver, (size_t)calls, sizeof *driver, compare);
    qsort(bare, (size_t)calls, sizeof *bare, compare);
    if (!only)
        printf("driver function %.1f us, bare exchange %.1f us, ratio %.3f\n", driver[calls / 2], bare[calls / 2],
               driver[calls / 2] / bare[calls / 2]);
    free(driver);
    free(bare);
    return 0;
}
