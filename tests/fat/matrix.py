#!/usr/bin/python3
"""Does every job on every FAT with every mount option, and judges the memory after each block.

Prints a table, and below it the faults with their blocks. Fails if a fault is not in accepted.py.
"""

import argparse
import itertools
import os
import shutil
import sys
import tempfile
from concurrent.futures import ProcessPoolExecutor

import accepted
import booting
import memory
from runs import Place, Run, do_jobs, judge, read_image, try_samples


def chosen(everything, name):
    return [one for one in everything if name in (None, getattr(one, "name", one))]


def make_bases(place, fats):
    """The memories as images, written by the real kernel."""
    steps = []
    for fat, tree in itertools.product(fats, memory.MEMORIES):
        image = place.base_image(fat, tree)
        memory.make_image(fat, image)
        fill = booting.fill_command(os.path.join(place.work, tree), fat.is_used)
        steps.append(booting.Step(image, "utf8", fill))
    booting.boot(place.realfat, place.work, "fill", steps)
    for step in steps:
        if booting.sums(step.image) != read_image(step.image).digests():
            raise ValueError(f"{step.image}: the kernel reads what our reader does not")


def try_all_samples(pool, runs):
    samples = [(run, sample) for run in runs for sample in run.samples]
    pending = []
    for number, start in enumerate(range(0, len(samples), booting.DISKS)):
        tried = samples[start:start + booting.DISKS]
        pending.append((tried, pool.submit(try_samples, number, tried)))
    for tried, result in pending:
        for (run, _), faults in zip(tried, result.result()):
            for fault in faults:
                run.note(*fault)


def do_matrix(place, jobs, fats, mounts):
    """All runs, judged."""
    memory.make_memories(place.work, place.makesamples, place.worker)
    make_bases(place, fats)
    numbers = itertools.count()
    elsewhere = {job: memory.do_elsewhere(place.work, place.worker, job) for job in jobs}
    groups = [[Run(place, job, fat, mount, next(numbers), elsewhere[job]) for job in jobs]
              for fat, mount in itertools.product(fats, mounts)]
    with ProcessPoolExecutor() as pool:
        done = list(itertools.chain(*pool.map(do_jobs, groups)))
        runs = list(pool.map(judge, done))
        try_all_samples(pool, runs)
    return runs


def report(runs):
    """Prints the results of the runs; returns how many of their faults are not accepted."""
    line = "{:<10} {:<9} {:<8} {:>6} {:>5} {:>7} {:>6} {:>8}"
    print(line.format("job", "FAT", "mounted", "blocks", "cuts", "samples", "faults", "accepted"))
    details = []
    for run in runs:
        refused = [fault for fault in run.faults if not accepted.is_accepted(run, *fault)]
        print(line.format(run.job.name, run.fat.name, run.mount, run.blocks, run.cuts,
                          len(run.samples), len(refused), len(run.faults) - len(refused)))
        name = f"{run.job.name} {run.fat.name} {run.mount}"
        details += [f"{name}: blocks {first}..{last} of {run.blocks} ({last - first + 1}): {fault}"
                    for fault, first, last in refused]
    print("\n".join(["", *details, f"{len(details)} faults in {len(runs)} runs"]))
    return len(details)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("project", help="the project's folder")
    parser.add_argument("build", help="the folder with the target fat built")
    parser.add_argument("--job", choices=[job.name for job in memory.JOBS])
    parser.add_argument("--type", choices=[fat.name for fat in memory.FATS])
    parser.add_argument("--mount", choices=list(memory.MOUNTS))
    parser.add_argument("--keep", action="store_true", help="leave images and logs where they are")
    given = parser.parse_args()
    os.environ["BRISEL_BUILD"] = given.build
    # Images are copied for each cut, so they should be on a RAM disk, which the caller names.
    work = tempfile.mkdtemp(prefix="brisel2pc-fat-")
    try:
        runs = do_matrix(Place(given.project, given.build, work), chosen(memory.JOBS, given.job),
                         chosen(memory.FATS, given.type), chosen(memory.MOUNTS, given.mount))
        return 1 if report(runs) else 0
    finally:
        if given.keep:
            print(f"Images and logs: {work}")
        else:
            shutil.rmtree(work)


if __name__ == "__main__":
    sys.exit(main())
