// A program that is being measured.
#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

/// A program and its arguments.
using Command = std::vector<std::string>;

/// Started when it is made, ended when it is destroyed. What it prints is thrown away.
class Program {
public:
    /// `environment` holds NAME=VALUE texts that are added to ours.
    explicit Program(const Command &command, const std::vector<std::string> &environment = {});
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    void writeLine(const std::string &line) const;

    /// Of processor time, since it was started.
    std::chrono::duration<double> cpuTime() const;
    /// Resident memory in bytes.
    double memory() const;
    /// The same, but of what other programs use, too, only a share.
    double proportionalMemory() const;
    /// How often its threads have gone to sleep, and so were woken, since it was started.
    double wakeUps() const;

    int id() const { return m_process; }

private:
    int m_process = 0;
    int m_input = -1;
};
