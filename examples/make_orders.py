#!/usr/bin/env python3
"""Makes orders.csv, the sample data: the same rows every time."""

import csv
import pathlib
import random

ROWS = 3000
CITIES = {
    "North": ["Oslo", "Tromsø", "Bergen", "Göteborg"],
    "South": ["Sevilla", "Málaga", "Palermo", "Αθήνα"],
    "East": ["서울", "부산", "대전", "Warszawa"],
    "West": ["Dublin", "Lisboa", "Bordeaux", "Galway"],
}
FIRST = ["Anna", "Björn", "Chloé", "Dario", "Eva", "Finn", "Greta", "Hugo", "Ines", "Jürgen"]
LAST = ["Andersson", "Brandt", "Castillo", "Dubois", "Eriksen", "Fischer", "García", "Hoffmann", "Ivanova"]
KOREAN = ["김민준", "이서연", "박도윤", "최지우", "정하은", "강시우", "조수아", "윤예준"]
ITEMS = [
    ("Desk lamp, brass", 6450), ("Office chair", 18900), ("Notebook A5, dotted", 495), ("Fountain pen", 3200),
    ("Monitor 27 inch", 28900), ("Keyboard, quiet", 7990), ("USB hub", 2450), ("Bookshelf, oak", 23900),
    ("Standing desk", 49900), ("Wall clock", 3990),
]


def customer(rng, city):
    if any("\uac00" <= letter <= "\ud7a3" for letter in city):
        return rng.choice(KOREAN)
    return f"{rng.choice(FIRST)} {rng.choice(LAST)}"


def rows(rng):
    for number in range(1, ROWS + 1):
        region = rng.choice(list(CITIES))
        city = rng.choice(CITIES[region])
        item, cents = rng.choice(ITEMS)
        quantity = rng.choice([1, 1, 1, 2, 2, 3, 5, 10, 25])
        date = f"2024{rng.randint(1, 12):02}{rng.randint(1, 28):02}"
        done = rng.randint(0, 100)
        yield [10000 + number, customer(rng, city), city, region, item, quantity, f"{cents / 100:.2f}",
               f"{quantity * cents / 100:.2f}", date, 1 if done > 60 else 0, done]


def main():
    path = pathlib.Path(__file__).with_name("orders.csv")
    with path.open("w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["ORDER_NO", "CUSTOMER", "CITY", "REGION", "ITEM", "QTY", "PRICE", "AMOUNT", "ORDERED",
                         "PAID", "DONE"])
        writer.writerows(rows(random.Random(20240501)))


if __name__ == "__main__":
    main()
