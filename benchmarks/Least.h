#pragma once

#include "BaseResponse.h"
#include "IAcmHandler.h"

#include <mutex>

namespace benchmark_table
{

/// The least that a command can take: a lock, a response, the collaborator's virtual call, and the return.
class Least
{
  public:
    explicit Least(IAcmHandler& collaborator) : m_collaborator(&collaborator) {}

    [[gnu::noinline]] zyr_top_api::StandardResponse call(bool enable)
    {
        const std::lock_guard guard(m_mutex);
        zyr_top_api::StandardResponse response;
        response.tiResult = static_cast<zyr_top_api::ETIResult>(m_collaborator->enableAcm(enable));
        return response;
    }

  private:
    std::mutex m_mutex;
    IAcmHandler* volatile m_collaborator; // so that the call stays virtual
};

} // namespace benchmark_table
