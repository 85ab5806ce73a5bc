#include "helpers/page-renderer/Family.h"

#include "helpers/page-renderer/Outcome.h"

#include <chrono>
#include <unistd.h>

namespace ovrin {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// A standard input that stays open, whatever the test was started with.
class ProcessFamily : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(pipe(m_pipe), 0);
        ASSERT_EQ(dup2(m_pipe[0], STDIN_FILENO), STDIN_FILENO);
    }
    void TearDown() override
    {
        close(m_pipe[0]);
        close(m_pipe[1]);
    }

private:
    int m_pipe[2] = {-1, -1};
};

/// Orphans that end around the worker's own end must not hide it.
TEST_F(ProcessFamily, NoticesTheWorkersEndAmongOthers)
{
    for (int round = 0; round < 40; ++round) {
        const auto limit = Clock::now() + 30s;
        const int status = runWithFamily(limit, [](const std::filesystem::path&) {
            for (int orphan = 0; orphan < 8; ++orphan) {
                if (fork() == 0 && (fork() != 0 || usleep(static_cast<useconds_t>(orphan) * 50) == 0))
                    _exit(0);
            }
            return 7;
        });
        EXPECT_EQ(status, 7);
        ASSERT_LT(Clock::now(), limit) << "round " << round;
    }
}

TEST_F(ProcessFamily, EndsWhatRunsOnAtItsLimit)
{
    EXPECT_EQ(runWithFamily(Clock::now() + 50ms,
                            [](const std::filesystem::path&) {
                                if (fork() == 0)
                                    setsid();
                                for (;;)
                                    pause();
                                return 0;
                            }),
              static_cast<int>(RenderOutcome::TimedOut));
}

} // namespace
} // namespace ovrin
