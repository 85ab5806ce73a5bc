#!/usr/bin/env python3
"""Photos in the document reader against vipsthumbnail on the same file, whole processes, turn by turn.

usage: benchmarks/photos.py DOCUMENT-READER PICTURE...

Prints the shortest wall time of each and their ratio, and the reader's peak memory.
"""
import os
import struct
import subprocess
import sys
import tempfile
import time

TURNS = 7


def measured(command, **options):
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = status
    if status != 0:
        sys.exit(f"{command[0]} failed")
    return (time.perf_counter() - start) * 1000, usage.ru_maxrss / 1024


def main(reader, pictures):
    with tempfile.TemporaryDirectory() as folder:
        request, output = os.path.join(folder, "request"), os.path.join(folder, "output.jpg")
        for picture in pictures:
            with open(picture, "rb") as source, open(request, "wb") as target:
                body = source.read()
                target.write(struct.pack("<4sHHI", b"OVRD", 1, 1, len(body)) + body)
            ours, theirs, memory = [], [], 0
            for _ in range(TURNS):
                with open(request, "rb") as frame:
                    took, peak = measured([reader], stdin=frame)
                ours.append(took)
                memory = max(memory, peak)
                theirs.append(measured(["vipsthumbnail", picture, "-s", "1600x1600", "-o", output + "[Q=85]"])[0])
            print(f"{os.path.basename(picture):24} reader {min(ours):6.0f} ms   vipsthumbnail {min(theirs):6.0f} ms"
                  f"   ratio {min(ours) / min(theirs):.2f}   peak {memory:.0f} MB")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
