"""A job on one FAT with one mount option: done, cut at each block, judged, and done again."""

import os
from dataclasses import dataclass, field

import booting
import fatimage
import memory
import replay
from judging import Judge, windows

MOST_WAITING = 4  # the most cuts of a run that are tried where songs wait for the next run


@dataclass
class Place:
    """The folders in use."""

    project: str
    build: str
    work: str

    @property
    def realfat(self):
        return os.path.join(self.project, "scripts/realfat")

    @property
    def worker(self):
        return os.path.join(self.build, "tests/shim/brisel_worker")

    @property
    def makesamples(self):
        return os.path.join(self.build, "tools/makesamples")

    def base_image(self, fat, tree):
        return os.path.join(self.work, f"{fat.name}-{tree}.img")


@dataclass
class Sample:
    """A memory after a cut, to be mounted again."""

    image: str
    block: int
    is_repaired: bool
    does_job: bool


@dataclass
class Run:
    place: Place
    job: memory.Job
    fat: memory.Fat
    mount: str
    number: int
    elsewhere: list  # the job's result outside of FAT: memory.do_elsewhere()
    blocks: int = 0
    cuts: int = 0
    faults: list = field(default_factory=list)  # (fault, first block, last block)
    samples: list = field(default_factory=list)

    @property
    def base(self):
        return self.place.base_image(self.fat, self.job.memory)

    def file(self, part=""):
        return os.path.join(self.place.work,
                            f"{self.job.name}-{self.fat.name}-{self.mount}{part}.img")

    def step(self, image, does_job=True, is_next_run=False):
        arguments = self.job.arguments.format(m="/dev/memory",
                                              s=os.path.join(self.place.work, "samples"))
        return booting.Step(image, memory.MOUNTS[self.mount],
                            f"{self.place.worker} {arguments}" if does_job else "", is_next_run)

    def judge(self):
        """The judge, from the content before the job and, as read by the kernel, after it."""
        return Judge(read_image(self.base).digests(), booting.sums(self.file()), self.elsewhere[1])

    def note(self, fault, block):
        self.faults.append((fault, block, block))


def read_image(path):
    file = os.open(path, os.O_RDONLY)
    try:
        return fatimage.Image(file).read()
    finally:
        os.close(file)


def boot(run, name, steps):
    booting.boot(run.place.realfat, run.place.work, name, steps, memory.is_hurried(run.mount))


def do_jobs(runs):
    """Boots once and does the jobs, each on a new memory; the writes are logged."""
    for run in runs:
        replay.copy_sparse(run.base, run.file())
        with open(run.file() + ".log", "wb"):
            pass
    first = runs[0]
    boot(first, f"jobs-{first.fat.name}-{first.mount}", [run.step(run.file()) for run in runs])
    return runs


def judge(run):
    """Judges the memory after each block, as it is and repaired, and keeps some of the cuts."""
    if booting.status(run.file()) != 0:
        run.note("the job failed", 0)
        return run
    found = {path: digest for path, digest in booting.sums(run.file()).items()
             if not path.startswith(memory.KEPT)}
    if found != run.elsewhere[0]:
        run.note("the job gave other files than outside of any FAT", 0)
    before, later = replay.read_log(run.file() + ".log")
    run.blocks = replay.count_blocks(before)
    replay.copy_sparse(run.base, run.file("-cut"))
    rules = run.judge()
    waiting = [[], []]

    def before_done(block, is_repaired, tree):
        faults, aside = rules.before(tree)
        waiting[is_repaired].append((block, aside))
        return faults

    def at_done(_block, _is_repaired, tree):
        return rules.at_done(tree)

    judge_cuts(run, before, 0, before_done)
    # Everything that is there when the job is done must stay while the kernel writes the rest.
    judge_cuts(run, later, run.blocks, at_done)
    os.remove(run.file("-cut"))
    os.remove(run.file("-fixed"))
    keep_samples(run, before, [windows(found, run.blocks) for found in waiting])
    return run


def judge_cuts(run, writes, start, faults_of):
    """Replays writes, the first of which is the block after "start", on the image of cuts, and
    records the faults of each cut."""
    cut, fixed = run.file("-cut"), run.file("-fixed")
    views = [], []
    with open(cut, "r+b") as file:
        for block, tree in replay.cuts(fatimage.Image(file.fileno()), writes):
            replay.repair(cut, fixed)
            for is_repaired, seen in enumerate((tree, read_image(fixed))):
                faults = faults_of(start + block, is_repaired, seen)
                views[is_repaired].append((start + block, faults))
            run.cuts += 1
    last = start + replay.count_blocks(writes)
    for prefix, faults in zip(("", "fsck: "), views):
        run.faults += [(prefix + fault, *window) for fault, *window in windows(faults, last)]


def keep_samples(run, writes, waiting):
    """Keeps the memory at "done", one in the middle, and those where songs wait: "waiting" has their
    windows on the memory as it is, and on the repaired one."""
    def keep(block, is_repaired, does_job):
        sample = Sample(run.file(f"-{block}{'-fixed' if is_repaired else ''}"), block, is_repaired,
                        does_job)
        replay.make_cut(run.base, writes, block, sample.image)
        if is_repaired:
            replay.repair(sample.image, sample.image + ".part")
            os.replace(sample.image + ".part", sample.image)
        run.samples.append(sample)

    keep(run.blocks, False, False)
    keep(run.blocks // 2, run.number % 2 == 1, True)
    for is_repaired, found in enumerate(waiting):
        blocks = sorted({block for window in found for block in window[1:]})
        for block in blocks[::-(-len(blocks) // MOST_WAITING) or 1]:
            keep(block, bool(is_repaired), True)


def try_samples(number, tried):
    """Boots once, lets the kernel read the kept memories and does the jobs again. "tried": a list of
    (run, sample). Returns the faults of each as (fault, block)."""
    read = [read_image(sample.image).digests() for _, sample in tried]
    boot(tried[0][0], f"samples-{number}",
         [run.step(sample.image, sample.does_job, True) for run, sample in tried])
    return [[(fault, sample.block) for fault in faults_of_sample(run, sample, digests)]
            for (run, sample), digests in zip(tried, read)]


def faults_of_sample(run, sample, digests):
    """What is wrong now; "digests": of all files before."""
    if not sample.does_job:
        kernel = booting.sums(sample.image)
        return [f"{path} as the kernel reads it" for path in sorted(digests.keys() | kernel)
                if len(digests.get(path, "")) == 40 and digests[path] != kernel.get(path)]
    if booting.status(sample.image) not in run.job.again:
        faults = ["the job fails"]
    else:
        faults = run.judge().after_next_run(read_image(sample.image))
    return [f"next run{' after fsck' if sample.is_repaired else ''}: {fault}" for fault in faults]
