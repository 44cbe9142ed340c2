#include "batch/CommandLine.h"
#include "batch/Workers.h"
#include "toolkit/Application.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv)
{
    using namespace quorrin;
    try {
        const Request request = parseCommandLine(argc, argv);
        switch (request.command) {
        case Request::Command::Help:
            std::fputs(usage, stdout);
            return 0;
        case Request::Command::Version:
            std::printf("quorrin-map-batch %s\n", Application::Version().c_str());
            return 0;
        default:
            return runAll(request) ? 0 : 1;
        }
    } catch (const UsageError& error) {
        std::fprintf(stderr, "quorrin-map-batch: %s\nTry \"quorrin-map-batch --help\".\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorrin-map-batch: %s\n", error.what());
        return 1;
    }
}
