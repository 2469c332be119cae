"""A customer's first day with the program as it is delivered, seen from outside:

    first_order.py PROGRAM FOLDER CATALOGUE...

starts PROGRAM, which works in FOLDER, saves the catalogue zips there and orders from Orrendale Fixings.
"""

import shutil
import struct
import sys
from pathlib import Path

import desktop
from desktop import click, enter, find, press, wait_for

LINE_LENGTH = 17


def main(program, folder, zips):
    start_without_catalogue(program, folder)
    for zip_file in zips:
        shutil.copy(zip_file, folder)
    supplier = folder / "ORRENDALE"
    running = open_catalogue(program)
    order(supplier, quantity=12, lines=2)
    check_out("Marlowe & Sons")
    leave(running)
    assert "Marlowe & Sons" in (supplier / "User.ini").read_text("cp1252")
    assert not list(folder.glob("*.zip")), "a zip has not been installed"


def start_without_catalogue(program, folder):
    running = desktop.start(program)
    click(find("button", "Yes"))
    find("label", f"Missing Catalog files\nSave the catlog zip file emailed by your supplier to {folder}")
    click(find("button", "OK"))
    running.wait(desktop.PATIENCE)
    assert "Status=Yes" in (folder / "Start.ini").read_text()


def open_catalogue(program, *zips):
    running = desktop.start(program, *zips)
    click(find("link", "Orrendale Fixings"))
    find("password text", "Password")
    press("Return")
    find("table", "Products")
    desktop.type_into(" - Tavorine$")
    return running


def order(supplier, quantity, lines):
    """Goes down the list until the order has that many lines; a group's row takes no quantity."""
    for _ in range(20):
        before = len(amounts(supplier, quantity))
        if before >= lines:
            break
        enter(quantity)
        press("Return", "Down")
        desktop.patiently(1, lambda: len(amounts(supplier, quantity)) > before)
    wait_for("the order's total", lambda: shown("Order total") == f"{sum(amounts(supplier, quantity)):,.2f}")


def amounts(supplier, quantity):
    """Of each line in the order's file; all are of that quantity."""
    records = (supplier / "Basket.dat").read_bytes()
    assert len(records) % LINE_LENGTH == 0, f"{len(records)} bytes are not an order's lines"
    lines = list(struct.iter_unpack("<cfffi", records))
    assert all(line[1] == quantity for line in lines), lines
    return [amount for _, _, _, amount, _ in lines]


def shown(label):
    return find("label", label).get_name()


def check_out(business):
    click(find("button", "Check Out"))
    click(find("text", "Business"))
    enter(business)


def leave(running):
    press("ctrl+q")
    assert running.wait(desktop.PATIENCE) == 0, "the program ended with an error"


if __name__ == "__main__":
    with desktop.screen():
        main(sys.argv[1], Path(sys.argv[2]), sys.argv[3:])
