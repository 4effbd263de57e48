#pragma once

#include "Export.h"

#include <string>
#include <utility>

namespace zyr_top_api
{

/// An entry of the command table: a wire name, and behind it (`CmdWrapper`) the object that executes.
class ZYR_EXPORT CmdWrapperBase
{
  public:
    explicit CmdWrapperBase(std::string name) : m_name(std::move(name)) {}
    virtual ~CmdWrapperBase() = default;
    CmdWrapperBase(const CmdWrapperBase&) = delete;
    CmdWrapperBase& operator=(const CmdWrapperBase&) = delete;

    /// The command's wire name.
    const std::string& name() const { return m_name; }

  private:
    std::string m_name;
};

/// The table entry of one command. Its object is the one and only instance that ever executes.
/// Exported, so that the dispatcher recognises an entry that another module made.
template <class XImpl>
class ZYR_EXPORT CmdWrapper : public CmdWrapperBase
{
  public:
    using CmdWrapperBase::CmdWrapperBase;

    XImpl& impl() { return m_impl; }

  private:
    XImpl m_impl;
};

} // namespace zyr_top_api
