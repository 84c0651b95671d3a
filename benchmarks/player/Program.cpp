#include "Program.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string readFile(const std::string &path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

/// What stands behind `label` at the beginning of a line.
double numberIn(const std::string &path, const std::string &label)
{
    std::istringstream text(readFile(path));
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with(label))
            return std::stod(line.substr(label.size()));
    }
    return 0;
}

} // namespace

Program::Program(
    const std::vector<std::string> &command, const std::vector<std::string> &environment)
{
    int input[2];
    if (::pipe2(input, O_CLOEXEC) != 0)
        std::abort();
    m_process = ::fork();
    if (m_process == 0) {
        std::vector<char *> arguments;
        arguments.reserve(command.size() + 1);
        for (const std::string &argument : command)
            arguments.push_back(const_cast<char *>(argument.c_str()));
        arguments.push_back(nullptr);
        for (const std::string &variable : environment)
            ::putenv(const_cast<char *>(variable.c_str()));
        const int nowhere = ::open("/dev/null", O_RDWR);
        ::dup2(input[0], 0);
        ::dup2(nowhere, 1);
        ::dup2(nowhere, 2);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    ::close(input[0]);
    m_input = input[1];
}

Program::~Program()
{
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    ::close(m_input);
}

void Program::writeLine(const std::string &line) const
{
    const std::string text = line + '\n';
    if (::write(m_input, text.data(), text.size()) != ssize_t(text.size()))
        std::abort();
}

std::chrono::duration<double> Program::cpuTime() const
{
    const std::string text = readFile("/proc/" + std::to_string(m_process) + "/stat");
    // The name of the program, in brackets, may hold spaces; user and system time are the 12th and
    // 13th numbers behind it.
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string skipped;
    for (int i = 0; i < 11; ++i)
        fields >> skipped;
    double user = 0;
    double system = 0;
    fields >> user >> system;
    return std::chrono::duration<double>((user + system) / double(::sysconf(_SC_CLK_TCK)));
}

double Program::wakeUps() const
{
    double wakeUps = 0;
    const std::string folder = "/proc/" + std::to_string(m_process) + "/task";
    for (const auto &thread : std::filesystem::directory_iterator(folder))
        wakeUps += numberIn(thread.path() / "status", "voluntary_ctxt_switches:");
    return wakeUps;
}

double Program::proportionalMemory() const
{
    return 1024 * numberIn("/proc/" + std::to_string(m_process) + "/smaps_rollup", "Pss:");
}

double Program::memory() const
{
    std::istringstream fields(readFile("/proc/" + std::to_string(m_process) + "/statm"));
    double total = 0;
    double resident = 0;
    fields >> total >> resident;
    return resident * double(::sysconf(_SC_PAGESIZE));
}
