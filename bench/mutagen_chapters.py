"""Writes 10,000 chapters into an MP3 file: mutagen_chapters.py FILE"""

import sys

from mutagen.id3 import CHAP, ID3, TIT2

tags = ID3()
for i in range(10000):
    title = TIT2(encoding=0, text=f"marker {i}")
    tags.add(CHAP(element_id=f"chp{i}", start_time=i * 2, end_time=i * 2 + 1,
                  start_offset=0xFFFFFFFF, end_offset=0xFFFFFFFF, sub_frames=[title]))
tags.save(sys.argv[1], v2_version=3)
