// The common error report's plumbing.
#include "ErrorTrap.h"

namespace {

ErrorReporter& Reporter()
{
    static ErrorReporter reporter;
    return reporter;
}

std::function<void()>& AbortHandler()
{
    static std::function<void()> handler;
    return handler;
}

std::string& VersionText()
{
    static std::string version;
    return version;
}

}  // namespace

void SetErrorReporter(ErrorReporter reporter) { Reporter() = std::move(reporter); }
void SetAbortHandler(std::function<void()> handler) { AbortHandler() = std::move(handler); }
void SetErrorVersionText(const std::string& version) { VersionText() = version; }

int ReportError(const ErrorReport& report)
{
    return Reporter() ? Reporter()(report) : AnswerIgnore;
}

int ErrorTrap::Report(int number, const std::string& description)
{
    ErrorReport r;
    r.title = "Prismo";
    r.version = VersionText();
    r.module = module_;
    r.procedure = procedure_;
    r.line = line_;
    r.number = std::to_string(number);
    r.description = description;
    return ReportError(r);
}

void ErrorTrap::Abort()
{
    if (AbortHandler()) AbortHandler()();
}
