// Runs a program to its end and prints its milliseconds and largest resident size in MiB.

#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static double now()
{
    timespec time {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

int main(int count, char** arguments)
{
    if (count < 2)
        return 2;
    auto const start = now();
    auto const child = fork();
    if (child < 0)
        return 2;
    if (child == 0) {
        auto const nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (nowhere >= 0)
            dup2(nowhere, STDOUT_FILENO);
        execvp(arguments[1], arguments + 1);
        _exit(127);
    }
    int status = 0;
    rusage usage {};
    if (wait4(child, &status, 0, &usage) != child)
        return 2;
    auto const milliseconds = now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return 1;
    std::printf("%.3f %.3f\n", milliseconds, static_cast<double>(usage.ru_maxrss) / 1024);
    return 0;
}
