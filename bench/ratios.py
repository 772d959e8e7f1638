# SPDX-License-Identifier: Apache-2.0
"""Tables out of one run of foundation_bench: how the cost grows with the list, and how many times
as long libplist takes.

  foundation_bench --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true \\
    --benchmark_min_time=0.1 --benchmark_out=run.json
  python3 bench/ratios.py run.json

Processor times. On a busy machine the least of the repetitions says more than the median.
"""
import collections
import json
import statistics
import sys

times = collections.defaultdict(lambda: collections.defaultdict(list))
with open(sys.argv[1], encoding="utf-8") as run:
    for entry in json.load(run)["benchmarks"]:
        if entry["run_type"] == "iteration":
            name, size = entry["run_name"].rsplit("/", 1)
            times[name][int(size)].append(entry["cpu_time"])

for name, sizes in times.items():
    theirs = times.get("libplist" + name[0].upper() + name[1:], {})
    for size, ours in sizes.items():
        for label, of in (("median", statistics.median), ("least", min)):
            line = f"{name:22} {size:7} {label:6} {of(ours):9.3f} ms"
            if size // 10 in sizes:
                line += f"  {of(ours) / of(sizes[size // 10]):5.1f} times a tenth"
            if size in theirs:
                line += f"  libplist {of(theirs[size]) / of(ours):5.1f} times"
            print(line)
