// The common error report's plumbing.
#include "ErrorTrap.h"

#include <exception>

namespace {

ErrorReporter*& Reporter()
{
    static ErrorReporter* reporter = nullptr;
    return reporter;
}

std::string& VersionText()
{
    static std::string version;
    return version;
}

ErrorReport NewReport(const std::string& module, const std::string& procedure)
{
    ErrorReport r;
    r.title = "Prismo";
    r.version = VersionText();
    r.module = module;
    r.procedure = procedure;
    return r;
}

}  // namespace

void SetErrorReporter(ErrorReporter* reporter) { Reporter() = reporter; }
void SetErrorVersionText(const std::string& version) { VersionText() = version; }

int ReportError(const ErrorReport& report)
{
    return Reporter() ? Reporter()->Report(report) : AnswerIgnore;
}

void AbortProgram()
{
    if (Reporter()) Reporter()->Abort();
}

ErrorReport CaughtErrorReport(const std::string& module, const std::string& procedure)
{
    ErrorReport r = NewReport(module, procedure);
    r.number = "0";
    try {
        throw;
    } catch (const RuntimeError& e) {
        r.number = std::to_string(e.number);
        r.description = e.what();
    } catch (const std::exception& e) {
        r.description = e.what();
    } catch (...) {
        r.description = "Unknown error";
    }
    return r;
}

int ReportCaughtError(const std::string& module, const std::string& procedure)
{
    const int answer = ReportError(CaughtErrorReport(module, procedure));
    if (answer == AnswerAbort) AbortProgram();
    return answer;
}

int ErrorTrap::Report(int number, const std::string& description)
{
    ErrorReport r = NewReport(module_, procedure_);
    r.line = line_;
    r.number = std::to_string(number);
    r.description = description;
    return ReportError(r);
}
