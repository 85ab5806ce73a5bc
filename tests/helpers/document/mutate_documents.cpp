#include "helpers/document/MutationRun.h"

#include <QtCore/QCoreApplication>

#include <iostream>

// mutate-documents [COUNT [SEED]]: imports changed PDFs by way of the reader in its cage, and says what
// became of them. Ends with 1 when an outcome was none of the specified ones or a process is left.

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int count = arguments.value(1, QStringLiteral("10000")).toInt();
    const auto seed = arguments.value(2, QStringLiteral("1")).toUInt();
    const auto tally = ovrin::mutationRun(count, seed, QStringLiteral(OVRIN_WARM_READER));
    const int left = ovrin::childProcesses();
    std::cout << "documents          " << count << " (seed " << seed << ")\n"
              << "drafts             " << tally.drafts << "\n"
              << "without text       " << tally.withoutText << "\n"
              << "damaged            " << tally.damaged << ", of which ended the reader " << tally.ended
              << ", took too long " << tally.timedOut << "\n"
              << "anything else      " << tally.unspecified << "\n"
              << "longest answer     " << tally.longestMilliseconds << " ms\n"
              << "processes left     " << left << "\n";
    return tally.unspecified == 0 && left == 0 ? 0 : 1;
}
