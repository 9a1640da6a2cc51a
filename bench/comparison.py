#!/usr/bin/env python3
"""Times everyday tasks with mavrin2, SoX, ffmpeg and, where they can do them, flac and lame, and prints
the table of docs/comparison.md.

Usage: comparison.py DATA PROGRAM [--rounds N] [TASK...]

DATA has m10.wav, small.wav and album/; PROGRAM is the program mavrin2. TASK is a number from the
table. The programs take turns, N times (5) after one warm-up, and the median of each is printed: seconds
on the clock, and seconds of processor time of the command and of all that it started.
"""

import argparse
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

# Each task: what it is, and the command of each program as one types it in a shell; None where a
# program has none. In the folder are song.wav and voice.wav (10 minutes), jingle.wav (3 seconds) and
# album/ (20 FLAC files); out/ is empty.
TASKS = [
    ("WAV to FLAC",
     "mavrin2 convert song.wav out/song.flac",
     "sox song.wav out/song.flac",
     "ffmpeg -i song.wav out/song.flac",
     "flac -s song.wav -o out/song.flac"),
    ("WAV to MP3 with a variable bit rate",
     "mavrin2 convert song.wav out/song.mp3 --quality 2",
     "sox song.wav -C -2 out/song.mp3",
     "ffmpeg -i song.wav -q:a 2 out/song.mp3",
     "lame -V2 song.wav out/song.mp3"),
    ("a FLAC album to MP3, tags and pictures kept",
     "mavrin2 convert album/*.flac -o out --to mp3 --quality 2",
     None,
     "ls album | xargs -P2 -I% ffmpeg -i album/% -c:v copy -q:a 2 out/%.mp3",
     "ls album | xargs -P2 -I% sh -c 'flac -sdc album/% | lame --quiet -V2 - out/%.mp3'"),
    ("cut out a part",
     "mavrin2 convert song.wav out/part.wav --start 1:00 --end 3:00",
     "sox song.wav out/part.wav trim 1:00 =3:00",
     "ffmpeg -i song.wav -ss 1:00 -to 3:00 -c copy out/part.wav"),
    ("remove a part",
     "mavrin2 convert song.wav out/rest.wav --delete 1:00-3:00",
     "sox song.wav out/rest.wav trim 0 =1:00 =3:00",
     "ffmpeg -i song.wav -af \"aselect='lt(t,60)+gte(t,180)',asetpts=N/SR/TB\" out/rest.wav"),
    ("join",
     "mavrin2 join out/both.wav jingle.wav song.wav",
     "sox jingle.wav song.wav out/both.wav",
     "ffmpeg -i jingle.wav -i song.wav -filter_complex concat=v=0:a=1 out/both.wav"),
    ("mix, one of them quieter",
     "mavrin2 mix out/mix.wav voice.wav song.wav@30%",
     "sox -m -v 1 voice.wav -v 0.3 song.wav out/mix.wav",
     "ffmpeg -i voice.wav -i song.wav -filter_complex "
     "'amix=weights=1 0.3:normalize=0' out/mix.wav"),
    ("fade in and out",
     "mavrin2 convert song.wav out/faded.wav --fade 2,5",
     "sox song.wav out/faded.wav fade t 2 -0 5",
     "ffmpeg -i song.wav -af 'afade=d=2,areverse,afade=d=5,areverse' out/faded.wav"),
    ("normalize the peak to -1 dB",
     "mavrin2 convert song.wav out/loud.wav --normalize 89",
     "sox song.wav out/loud.wav gain -n -1",
     None),
    ("44100 Hz stereo to 48000 Hz mono",
     "mavrin2 convert song.wav out/mono.wav --rate 48000 --channels 1",
     "sox song.wav -r 48000 -c 1 out/mono.wav",
     "ffmpeg -i song.wav -ar 48000 -ac 1 out/mono.wav"),
    ("show length, format and tags of an album",
     "mavrin2 info album/*.flac",
     "sox --i album/*.flac",
     "for f in album/*.flac; do ffprobe $f; done"),
    ("draw the waveform",
     "mavrin2 picture song.wav out/wave.png",
     None,
     "ffmpeg -i song.wav -filter_complex showwavespic=s=1200x300 -frames:v 1 out/wave.png"),
]
PROGRAMS = ("mavrin2", "SoX", "ffmpeg", "flac, lame")


def seconds_of(folder, command, environment):
    """(on the clock, of processors) of one run."""
    shutil.rmtree(folder / "out", ignore_errors=True)
    (folder / "out").mkdir()
    begin = time.perf_counter()
    child = subprocess.Popen(["bash", "-c", command], cwd=folder, env=environment,
                             stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                             stderr=subprocess.PIPE)
    message = child.stderr.read()
    _, status, usage = os.wait4(child.pid, 0)
    elapsed = time.perf_counter() - begin
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        sys.exit(f"{command}\nfailed: {message.decode(errors='replace')[-500:]}")
    return elapsed, usage.ru_utime + usage.ru_stime


def measure(folder, commands, rounds, environment):
    """A pair of medians for each command, None for none."""
    times = [[] for _ in commands]
    for turn in range(rounds + 1):
        for command, taken in zip(commands, times):
            if command is not None:
                pair = seconds_of(folder, command, environment)
                if turn > 0:
                    taken.append(pair)
    return [tuple(statistics.median(values) for values in zip(*taken)) if taken else None
            for taken in times]


def prepare(data, folder):
    for name, target in (("song.wav", "m10.wav"), ("voice.wav", "m10.wav"),
                         ("jingle.wav", "small.wav"), ("album", "album")):
        (folder / name).symlink_to(data / target)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("data", type=pathlib.Path)
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("task", nargs="*", type=int)
    asked = parser.parse_args()
    program = asked.program.resolve()
    environment = dict(os.environ, PATH=f"{program.parent}:{os.environ['PATH']}")
    print("| | task | " + " | ".join(f"{name}: clock, processor" for name in PROGRAMS) + " |")
    print("|---|---" + "|---" * len(PROGRAMS) + "|", flush=True)
    with tempfile.TemporaryDirectory(dir=asked.data) as name:
        folder = pathlib.Path(name)
        prepare(asked.data.resolve(), folder)
        for number, (task, *commands) in enumerate(TASKS, 1):
            if asked.task and number not in asked.task:
                continue
            commands += [None] * (len(PROGRAMS) - len(commands))
            cells = ["-" if pair is None else f"{pair[0]:.2f}, {pair[1]:.2f} s"
                     for pair in measure(folder, commands, asked.rounds, environment)]
            print(f"| {number} | {task} | " + " | ".join(cells) + " |", flush=True)


if __name__ == "__main__":
    main()
