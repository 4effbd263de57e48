#include "Failure.h"

namespace zyr_ctl
{

namespace
{

const char* kindName(ExitStatus status)
{
    switch (status) {
    case ExitStatus::Done:
        return "none";
    case ExitStatus::Fault:
        return "fault";
    case ExitStatus::Usage:
        return "usage";
    case ExitStatus::NoConnection:
        return "connect";
    case ExitStatus::Timeout:
        return "timeout";
    case ExitStatus::Protocol:
        return "protocol";
    case ExitStatus::Interrupted:
        return "interrupted";
    }
    return "none";
}

} // namespace

std::string Failure::line() const
{
    return m_status == ExitStatus::Fault && m_code ? "fault " + std::to_string(*m_code) + ": " + what()
                                                   : what();
}

Value Failure::json() const
{
    Value error = Value::object();
    error["kind"] = kindName(m_status);
    error["code"] = m_code ? Value(*m_code) : Value();
    error["text"] = what();
    return {{"error", error}};
}

} // namespace zyr_ctl
