"""A start on a later day, with a catalogue given to the launcher that is installed already:

    later_start.py PROGRAM FOLDER CATALOGUE
"""

import sys
from pathlib import Path

import desktop
from desktop import click, find
from first_order import leave, open_catalogue


def main(program, folder, zip_file):
    settings = (folder / "ORRENDALE" / "User.ini").read_bytes()
    running = desktop.start(program, zip_file)
    click(find("button", "No"))  # replace the catalogue by the same version?
    find("link", "Sønderhaven & Frères")
    assert Path(zip_file).exists() and not (folder / Path(zip_file).name).exists()
    running.terminate()
    running.wait(desktop.PATIENCE)

    leave(open_catalogue(program))
    assert (folder / "ORRENDALE" / "User.ini").read_bytes() == settings


if __name__ == "__main__":
    with desktop.screen():
        main(sys.argv[1], Path(sys.argv[2]), sys.argv[3])
