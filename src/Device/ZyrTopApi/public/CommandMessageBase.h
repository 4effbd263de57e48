#pragma once

#include "Export.h"

#include <string>

namespace zyr_top_api
{

/// Root of commands that describe themselves in the catalogue. The frame never asks.
class ZYR_EXPORT CommandMessageBase
{
  public:
    virtual ~CommandMessageBase() = default;
    virtual std::string getCommandDescription() = 0;
};

} // namespace zyr_top_api
