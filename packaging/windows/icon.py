"""icon.py ICON PICTURE...: one Windows icon that holds the PNG pictures as they are."""

import struct
import sys

ENTRY = 16  # bytes that the icon's list takes for each picture


def main(target, *names):
    pictures = []
    for name in names:
        with open(name, "rb") as opened:
            pictures.append(opened.read())
    listed = struct.pack("<HHH", 0, 1, len(pictures))
    place = len(listed) + ENTRY * len(pictures)
    for picture in pictures:
        width, height = struct.unpack(">II", picture[16:24])
        listed += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32,
                              len(picture), place)
        place += len(picture)
    with open(target, "wb") as opened:
        opened.write(listed + b"".join(pictures))


if __name__ == "__main__":
    main(*sys.argv[1:])
