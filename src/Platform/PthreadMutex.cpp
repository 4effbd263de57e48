#include "DDevIo.h"

#include <cerrno>
#include <system_error>

#include <pthread.h>

namespace DDevIo
{

struct PthreadMutex::Native
{
    pthread_mutex_t mutex{};
};

namespace
{

void throwOnFailure(int error, const char* operation)
{
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), operation);
    }
}

int nativeType(PthreadMutexType type)
{
    switch (type) {
    case PthreadMutexType::Normal:
        return PTHREAD_MUTEX_NORMAL;
    }
    throw std::system_error(EINVAL, std::generic_category(), "PthreadMutexType");
}

} // namespace

PthreadMutex::PthreadMutex(PthreadMutexType type) : m_native(std::make_unique<Native>())
{
    pthread_mutexattr_t attributes{};
    throwOnFailure(pthread_mutexattr_init(&attributes), "pthread_mutexattr_init");
    pthread_mutexattr_settype(&attributes, nativeType(type));
    const int result = pthread_mutex_init(&m_native->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    throwOnFailure(result, "pthread_mutex_init");
}

PthreadMutex::~PthreadMutex()
{
    pthread_mutex_destroy(&m_native->mutex);
}

void PthreadMutex::lock()
{
    throwOnFailure(pthread_mutex_lock(&m_native->mutex), "pthread_mutex_lock");
}

void PthreadMutex::unlock()
{
    throwOnFailure(pthread_mutex_unlock(&m_native->mutex), "pthread_mutex_unlock");
}

} // namespace DDevIo
