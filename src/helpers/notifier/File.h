#pragma once

#include <unistd.h>

#include <utility>

namespace ovrin::notifier {

/// Owns a file descriptor.
class File
{
public:
    explicit File(int descriptor = -1) noexcept
        : m_descriptor(descriptor)
    {
    }
    File(File&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    File& operator=(File&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~File()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    int get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

} // namespace ovrin::notifier
