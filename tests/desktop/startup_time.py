"""From exec to the first painted window, and the memory then: startup_time.py PROGRAM [RUNS]"""

import os
import re
import statistics
import sys
import time

from session import Session, text_of, wait_for

executable = os.path.abspath(sys.argv[1])
runs = int(sys.argv[2]) if sys.argv[2:] else 15
times, sizes = [], []

with Session() as session:
    del os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
    # Qt tells each flush of painted pixels to the screen, here with the machine's own clock.
    os.environ["QT_LOGGING_RULES"] = "qt.widgets.painting=true"
    os.environ["QT_MESSAGE_PATTERN"] = "%{time boot} %{message}"
    for run in range(runs + 1):
        log = os.path.join(session.folder, f"log{run}")
        start = time.clock_gettime(time.CLOCK_MONOTONIC)
        program = session.start(executable, output=log)
        flushed = wait_for(lambda: re.search(r"^ *([0-9.]+) Flushing ", text_of(log), re.MULTILINE),
                           "the first paint")
        memory = re.search(r"VmRSS:\s+(\d+) kB", text_of(f"/proc/{program.pid}/status"))
        program.terminate()
        program.wait()
        if run > 0:  # the first one reads everything from the disk
            times.append((float(flushed.group(1)) - start) * 1000)
            sizes.append(int(memory.group(1)) / 1024)

print(f"first paint   {statistics.median(times):6.1f} ms median, {min(times):6.1f} least, of {runs} runs")
print(f"resident then {statistics.median(sizes):6.1f} MB")
