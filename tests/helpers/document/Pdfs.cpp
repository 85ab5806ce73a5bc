#include "helpers/document/Pdfs.h"

namespace ovrin {

QByteArray Pdfs::file(const QByteArrayList& objects)
{
    QByteArray bytes = "%PDF-1.5\n";
    QByteArray table;
    for (qsizetype i = 0; i < objects.size(); ++i) {
        table += QByteArray::number(bytes.size()).rightJustified(10, '0') + " 00000 n \n";
        bytes += QByteArray::number(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const QByteArray count = QByteArray::number(objects.size() + 1);
    const QByteArray start = QByteArray::number(bytes.size());
    return bytes + "xref\n0 " + count + "\n0000000000 65535 f \n" + table + "trailer\n<< /Size " + count +
           " /Root 1 0 R >>\nstartxref\n" + start + "\n%%EOF\n";
}

QByteArray Pdfs::stream(const QByteArray& content, const QByteArray& entries)
{
    return "<< " + entries + " /Length " + QByteArray::number(content.size()) + " >>\nstream\n" + content +
           "\nendstream";
}

QByteArray Pdfs::compressedStream(const QByteArray& content, const QByteArray& entries)
{
    // What zlib makes, behind the size that Qt puts first.
    return stream(qCompress(content).sliced(4), entries + " /Filter /FlateDecode");
}

QByteArray Pdfs::packedFile(const QByteArrayList& objects)
{
    const auto packed = objects.size() + 1;
    QByteArray bytes = "%PDF-1.5\n";
    QByteArray table;
    QByteArray places;
    QByteArray together;
    qsizetype count = 0;
    // One row of the table: kind, then where, then which.
    const auto row = [&](char kind, qsizetype where, qsizetype which) {
        table += kind;
        for (const int shift : {24, 16, 8, 0}) {
            table += static_cast<char>(where >> shift);
        }
        table += static_cast<char>(which);
    };
    row(0, 0, 0);
    const auto put = [&](qsizetype number, const QByteArray& object) {
        row(1, bytes.size(), 0);
        bytes += QByteArray::number(number) + " 0 obj\n" + object + "\nendobj\n";
    };
    for (qsizetype i = 0; i < objects.size(); ++i) {
        if (objects[i].contains("stream")) {
            put(i + 1, objects[i]);
        } else {
            row(2, packed, count++);
            places += QByteArray::number(i + 1) + ' ' + QByteArray::number(together.size()) + ' ';
            together += objects[i] + ' ';
        }
    }
    put(packed, compressedStream(places + together, "/Type /ObjStm /N " + QByteArray::number(count) +
                                                        " /First " + QByteArray::number(places.size())));
    const QByteArray start = QByteArray::number(bytes.size());
    const QByteArray size = QByteArray::number(packed + 2);
    row(1, bytes.size(), 0);
    bytes += QByteArray::number(packed + 1) + " 0 obj\n" +
             compressedStream(table, "/Type /XRef /W [1 4 1] /Root 1 0 R /Size " + size) + "\nendobj\n";
    return bytes + "startxref\n" + start + "\n%%EOF\n";
}

QByteArray Pdfs::textAt(int x, int y, const QByteArray& text, int size)
{
    return "BT /F1 " + QByteArray::number(size) + " Tf " + QByteArray::number(x) + ' ' +
           QByteArray::number(y) + " Td (" + text + ") Tj ET\n";
}

QByteArray Pdfs::pages(const QByteArrayList& contents)
{
    QByteArray kids;
    QByteArrayList objects{
        "<< /Type /Catalog /Pages 2 0 R >>", {}, "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"};
    for (const QByteArray& content : contents) {
        const QByteArray next = QByteArray::number(objects.size() + 2);
        kids += QByteArray::number(objects.size() + 1) + " 0 R ";
        objects << "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 600 800] /Contents " + next +
                       " 0 R /Resources << /Font << /F1 3 0 R >> >> >>"
                << stream(content);
    }
    objects[1] = "<< /Type /Pages /Count " + QByteArray::number(contents.size()) + " /Kids [" + kids + "] >>";
    return file(objects);
}

} // namespace ovrin
