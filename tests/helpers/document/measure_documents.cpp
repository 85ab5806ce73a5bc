#include "helpers/WarmReader.h"
#include "helpers/document/Pdfs.h"
#include "import/document/DocumentTextReader.h"
#include "import/document/RecipeTextParser.h"
#include "platform/languagemodel/LoopbackLanguageModel.h"
#include "platform/reader/ReaderPdfTextLayer.h"
#include "reader/DocumentMessage.h"
#include "support/Outcome.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <algorithm>
#include <atomic>
#include <iomanip>
#include <iostream>
#include <thread>

// measure-documents: what reading documents takes, in milliseconds, and in megabytes of the reader's memory
// at its highest. Run it pinned to one core (taskset -c 0).

namespace {

using namespace ovrin;

/// A page full of text: a recipe's forty lines.
QByteArray fullPage()
{
    QByteArray content = Pdfs::textAt(60, 760, "Lentil Soup with Lemon and Cumin", 24) +
                         Pdfs::textAt(60, 735, "Ingredients", 14);
    for (int i = 0; i < 15; ++i) {
        content += Pdfs::textAt(60, 718 - 14 * i,
                                QByteArray::number(50 + i) + " g red lentils, rinsed and picked over");
    }
    content += Pdfs::textAt(60, 500, "Method", 14);
    for (int i = 0; i < 24; ++i) {
        content +=
            Pdfs::textAt(60, 480 - 14 * i,
                         QByteArray::number(i + 1) +
                             ". Boil the lentils in the stock until they are soft and have fallen apart.");
    }
    return content;
}

QByteArray ofBytes(qsizetype size)
{
    return Pdfs::file(
        {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Count 1 /Kids [3 0 R] >>",
         "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 600 800] /Contents 4 0 R /Resources << /Font << /F1 5 "
         "0 "
         "R >> /XObject << /I 6 0 R >> >> >>",
         Pdfs::stream(fullPage() + " /I Do"), "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>",
         Pdfs::stream(QByteArray(size, 'x'), "/Type /XObject /Subtype /Image /Width 8000 /Height 8000 "
                                             "/ColorSpace /DeviceRGB /BitsPerComponent 8")});
}

double highestMegabytes(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(process));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = file.readAll();
    const qsizetype at = text.indexOf("VmHWM:");
    return at < 0 ? 0 : text.sliced(at + 6).trimmed().split(' ').first().toDouble() * 1024 / 1e6;
}

struct Measured
{
    double median;
    double longest;
    qsizetype pages;
    double megabytes;
};

/// Looks at a process's memory until it is told not to, or the process is gone.
class MemoryWatch
{
public:
    explicit MemoryWatch(qint64 process)
        : m_thread([this, process](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
                m_highest = std::max(m_highest.load(), highestMegabytes(process));
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
        })
    {
    }

    double highest()
    {
        m_thread.request_stop();
        m_thread.join();
        return m_highest;
    }

private:
    std::atomic<double> m_highest = 0;
    std::jthread m_thread;
};

/// Reads a document again and again; a small one before it starts the reader and has it load its module.
Measured measured(const QByteArray& document, int times)
{
    WarmReader reader(QStringLiteral(OVRIN_WARM_READER));
    reader.ask({reader::MessageKind::Document, Pdfs::pages({Pdfs::textAt(60, 60, "Soup")})},
               reader::maximumDocumentAnswerBytes);
    MemoryWatch watch(reader.processId());
    std::vector<double> milliseconds;
    Measured result{};
    for (int i = 0; i < times; ++i) {
        QElapsedTimer timer;
        timer.start();
        const auto frame =
            reader.ask({reader::MessageKind::Document, document}, reader::maximumDocumentAnswerBytes);
        const auto pages = frame ? ReaderPdfTextLayer::boxesOf(frame->body) : std::nullopt;
        QList<TextLine> lines;
        for (int page = 0; pages && page < pages->size(); ++page) {
            lines += DocumentTextReader::readingOrder(pages->at(page), page);
        }
        RecipeTextParser::parseFirst(lines);
        milliseconds.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        result.pages = pages ? pages->size() : -1;
    }
    result.megabytes = watch.highest();
    std::sort(milliseconds.begin(), milliseconds.end());
    result.median = milliseconds[milliseconds.size() / 2];
    result.longest = milliseconds.back();
    return result;
}

void print(const char* name, const Measured& m)
{
    std::cout << std::left << std::setw(28) << name << std::right << std::fixed << std::setprecision(1)
              << std::setw(9) << m.median << std::setw(9) << m.longest << std::setw(7) << m.pages
              << std::setw(9) << m.megabytes << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QByteArray page = fullPage();
    std::cout << "document                       median  longest  pages       MB\n";
    print("a text page", measured(Pdfs::pages({page}), 200));
    print("twelve text pages", measured(Pdfs::pages(QByteArrayList(12, page)), 40));
    print("10,000 text pages", measured(Pdfs::pages(QByteArrayList(10'000, page)), 5));
    const QByteArray words = "BT /F1 2 Tf " + QByteArray("1 0 Td (a) Tj ").repeated(8 << 20) + "ET";
    print("eight million words", measured(Pdfs::pages({words}), 1));
    print("199 MB", measured(ofBytes(qsizetype{199} << 20), 3));

    LoopbackLanguageModel model;
    QElapsedTimer timer;
    for (int i = 0; i < 3; ++i) {
        timer.start();
        const auto outcome = finished(model.respond({}, {}, {}, {}));
        std::cout << "asking " << model.servers().size() << " ports for a language model, "
                  << (outcome.value && *outcome.value ? "found: " : "none there: ")
                  << static_cast<double>(timer.nsecsElapsed()) / 1e6 << " ms\n";
    }
}
