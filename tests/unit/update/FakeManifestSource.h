#pragma once

#include "update/ManifestSource.h"

#include <utility>

namespace hmatnik::test {

/// A server that answers when and what the test says.
class FakeManifestSource final : public ManifestSource
{
public:
    void fetch(Handler handler) override
    {
        ++fetchCount;
        m_handler = std::move(handler);
    }

    /// Answers the fetch that waits.
    void answer(const std::optional<QByteArray> &body) { std::exchange(m_handler, {})(body); }

    int fetchCount = 0;

private:
    Handler m_handler;
};

} // namespace hmatnik::test
