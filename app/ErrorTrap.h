// Run-time errors and the common error report. A failure is a RuntimeError
// carrying the run-time error number the handlers key on; every procedure
// runs its steps through an ErrorTrap, which reports a failure and acts on
// the answer: Abort ends the program, Retry runs the step again, Ignore goes
// on with the next step.
#pragma once

#include <stdexcept>
#include <string>

struct RuntimeError : std::runtime_error {
    RuntimeError(int number, const std::string& description)
        : std::runtime_error(description), number(number) {}
    int number;
};

// Run-time error numbers the program's handlers know by number.
namespace Err {
constexpr int Overflow = 6, AccessDenied = 5, TypeMismatch = 13, BadFileNameOrNumber = 52, FileNotFound = 53,
              DeviceIO = 57, FileExists = 58, DiskFull = 61, PermissionDenied = 70, DiskNotReady = 71,
              PathFileAccess = 75, PathNotFound = 76;
}

// What the common error report shows, in the order it takes them.
struct ErrorReport {
    std::string title;        // "Prismo"
    std::string version;      // the version text
    std::string module;       // e.g. "modFade"
    std::string procedure;    // e.g. "FadeEngine"
    long line = 0;            // the failing step
    std::string number;       // the error number as text
    std::string description;
    int flag = 0;
};

// Answers of the report, the message box's codes.
enum ErrorAnswer { AnswerAbort = 3, AnswerRetry = 4, AnswerIgnore = 5 };

// Where the common error report goes: the program installs its dialog, tests
// install their own.
class ErrorReporter {
public:
    virtual ~ErrorReporter() = default;
    // Shows the report to the user and returns their ErrorAnswer.
    virtual int Report(const ErrorReport& report) = 0;
    // Ends the program after the user chose Abort.
    virtual void Abort() = 0;
};

// Installs the reporter (not owned; it must outlive its installation). With
// none installed every report is answered Ignore and Abort does nothing.
void SetErrorReporter(ErrorReporter* reporter);
// The version text that reports carry.
void SetErrorVersionText(const std::string& version);

// Hands a report to the installed reporter and returns the answer.
int ReportError(const ErrorReport& report);
// Carries out Abort through the installed reporter.
void AbortProgram();

// For procedures nothing may escape (window and hook procedures); call inside
// a catch block. Describes the exception being handled: a RuntimeError by its
// number, anything else as error 0 with what it says.
ErrorReport CaughtErrorReport(const std::string& module, const std::string& procedure);
// Reports the exception being handled, carries out Abort when that is the
// answer, and returns the answer.
int ReportCaughtError(const std::string& module, const std::string& procedure);

class ErrorTrap {
public:
    ErrorTrap(std::string module, std::string procedure)
        : module_(std::move(module)), procedure_(std::move(procedure)) {}

    // Runs one step. Returns false when the procedure should leave at once
    // (an answer other than Retry or Ignore, after Abort's handler returned).
    template <class Step>
    bool Run(Step&& step)
    {
        ++line_;
        for (;;) {
            try {
                step();
                return true;
            } catch (const RuntimeError& e) {
                const int answer = Report(e.number, e.what());
                if (answer == AnswerRetry) continue;
                if (answer == AnswerIgnore) return true;
                if (answer == AnswerAbort) AbortProgram();
                return false;
            }
        }
    }

    // Runs one step with errors ignored: a failure skips to the next step.
    template <class Step>
    static bool Ignoring(Step&& step)
    {
        try {
            step();
            return true;
        } catch (const RuntimeError&) {
            return false;
        }
    }

private:
    int Report(int number, const std::string& description);

    std::string module_, procedure_;
    long line_ = 0;
};
