// Speaks exiftool's stay-open protocol, with the faults that a test asks for.
//
// $FAKE_EXIFTOOL names a folder. Its file `behaviour` says how each launch behaves, one word a line, the last
// one for all further launches; what happens is appended to `log`. Two that run at the same time in one
// folder log "overlap".

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

std::string folder;

std::string contents(const std::string& name)
{
    std::ifstream file(folder + '/' + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void log(const std::string& line)
{
    const int file = ::open((folder + "/log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const std::string text = line + '\n';
    [[maybe_unused]] const ssize_t n = ::write(file, text.data(), text.size());
    ::close(file);
}

std::size_t launchesSoFar()
{
    std::size_t count = 0;
    const std::string text = contents("log");
    for (std::size_t at = text.find("launch"); at != std::string::npos; at = text.find("launch", at + 1))
        ++count;
    return count;
}

std::string behaviourOfLaunch(std::size_t number)
{
    std::ifstream file(folder + "/behaviour");
    std::string word;
    for (std::size_t i = 0; i <= number && file >> word; ++i) {
    }
    return word;
}

void say(const std::string& bytes)
{
    std::cout << bytes << std::flush;
}

void waitFor(const std::string& name)
{
    while (!std::filesystem::exists(folder + '/' + name))
        ::poll(nullptr, 0, 2);
}

/// Until nobody listens any more.
void flood()
{
    constexpr std::size_t megabyte = 1024 * 1024;
    for (const std::string bytes(megabyte, 'x');;) {
        say(bytes);
        log("flooded");
    }
}

void answer(const std::string& behaviour, const std::string& number, const std::string& path)
{
    const std::string marker = "{ready" + number + "}\n";
    const std::string updated = "    1 image files updated\n" + marker;
    if (behaviour == "silent" || behaviour == "deaf" || behaviour == "die" || behaviour == "fail")
        std::ofstream(path + "_exiftool_tmp") << "half a photo";
    if (behaviour == "die")
        ::_exit(1);
    if (behaviour == "silent" || behaviour == "deaf")
        return;
    if (behaviour == "garbage") {
        for (int i = 0; i < 64; ++i)
            say(std::string(65536, '\xff') + "{ready" + number);
    } else if (behaviour == "flood") {
        flood();
    } else if (behaviour == "opens") {
        ::close(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        say("opened" + marker);
    } else if (behaviour == "afterthought") {
        say(updated);
        waitFor("heard" + number);
        say("an error, too late\n");
        log("afterthought");
    } else if (behaviour == "pieces") {
        for (const char c : updated)
            say(std::string(1, c));
    } else if (behaviour == "fail") {
        say("    0 image files updated\n    1 files weren't updated due to ERRORS\n" + marker);
    } else if (behaviour == "gated") {
        waitFor("go");
        say(updated);
    } else if (behaviour == "payload") {
        say(contents("payload") + marker);
    } else {
        say(updated);
    }
}

void serve(const std::string& behaviour)
{
    std::string request;
    std::string last;
    for (std::string line;;) {
        if (!std::getline(std::cin, line)) {  // like the real one, a closed input is no reason to end
            std::cin.clear();
            ::poll(nullptr, 0, 10);
            continue;
        }
        if (line == "false" && last == "-stay_open" && behaviour != "deaf") {
            log("stop");
            return;
        }
        if (line.rfind("-execute", 0) == 0) {
            log("request " + request + line);
            answer(behaviour, line.substr(8), last);
            request.clear();
        } else {
            request += line + '|';
            last = line;
        }
    }
}

}  // namespace

int main(int argc, char** argv)
{
    const char* const place = std::getenv("FAKE_EXIFTOOL");
    folder = place ? place : ".";
    if (argc < 2 || std::string(argv[1]) != "-stay_open") {
        std::string line = "one-shot";
        for (int i = 1; i < argc; ++i)
            line += ' ' + std::string(argv[i]);
        log(line);
        say("from a run of its own");
        return 0;
    }
    const int alive = ::open((folder + "/alive").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    if (::flock(alive, LOCK_EX | LOCK_NB) != 0)
        log("overlap");
    const std::string behaviour = behaviourOfLaunch(launchesSoFar());
    if (behaviour == "deaf")
        ::signal(SIGINT, SIG_IGN);
    log("launch " + behaviour);
    serve(behaviour);
}
