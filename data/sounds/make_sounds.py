#!/usr/bin/env python3
"""Writes the program's sounds (16-bit mono PCM WAV, 22050 Hz) into the folder
given: the message sounds, the start and end sounds and five alarms. Each sound
is a short sequence of tones described below, so the files can always be
rebuilt byte for byte from this script."""
import math
import os
import struct
import sys
import wave

RATE = 22050


def tone(freq, seconds, volume=0.5, glide_to=None, shape="sine", vibrato=0.0):
    """Samples of one note with a soft attack and release."""
    n = int(RATE * seconds)
    out = []
    phase = 0.0
    for i in range(n):
        t = i / RATE
        f = freq if glide_to is None else freq + (glide_to - freq) * i / max(1, n - 1)
        if vibrato:
            f *= 1.0 + vibrato * math.sin(2 * math.pi * 6 * t)
        phase += 2 * math.pi * f / RATE
        if shape == "square":
            v = 0.6 if math.sin(phase) >= 0 else -0.6
            v += 0.3 * math.sin(3 * phase)
        else:
            v = math.sin(phase) + 0.25 * math.sin(2 * phase)
        attack = min(1.0, i / (0.008 * RATE))
        release = min(1.0, (n - i) / (0.03 * RATE))
        out.append(v * volume * attack * release / 1.25)
    return out


def silence(seconds):
    return [0.0] * int(RATE * seconds)


def seq(*parts):
    samples = []
    for p in parts:
        samples.extend(p)
    return samples


def click(seconds=0.03):
    n = int(RATE * seconds)
    return [math.sin(2 * math.pi * 2000 * i / RATE) * 0.7 * (1 - i / n) ** 3 for i in range(n)]


def beeps(freq, count, on, off, volume=0.55):
    out = []
    for _ in range(count):
        out += tone(freq, on, volume) + silence(off)
    return out


SOUNDS = {
    "hey.wav": lambda: seq(tone(600, 0.09, glide_to=750), silence(0.03), tone(750, 0.14, glide_to=950)),
    "ooh.wav": lambda: tone(700, 0.45, glide_to=340),
    "pato.wav": lambda: seq(tone(420, 0.14, shape="square", vibrato=0.04, glide_to=360), silence(0.05),
                            tone(400, 0.18, shape="square", vibrato=0.04, glide_to=330)),
    "tic.wav": lambda: click(),
    "info.wav": lambda: seq(tone(880, 0.12), tone(1320, 0.25, volume=0.4)),
    "manager.wav": lambda: seq(tone(523, 0.12), tone(659, 0.12), tone(784, 0.12), tone(1047, 0.3, volume=0.4)),
    "exit.wav": lambda: seq(tone(1047, 0.15), tone(784, 0.15), tone(659, 0.15), tone(523, 0.5, volume=0.4)),
    "alarma1.wav": lambda: seq(beeps(1000, 4, 0.12, 0.08), silence(0.4), beeps(1000, 4, 0.12, 0.08)),
    "alarma2.wav": lambda: seq(*[tone(880, 0.25) + tone(660, 0.25) for _ in range(3)]),
    "alarma3.wav": lambda: seq(*[tone(500, 0.35, glide_to=1200) for _ in range(4)]),
    "alarma4.wav": lambda: seq(*[tone(f, 0.16) for f in (523, 659, 784, 1047, 784, 659) * 2]),
    "alarma5.wav": lambda: seq(beeps(1400, 10, 0.05, 0.05, volume=0.45), silence(0.3), beeps(1400, 10, 0.05, 0.05, volume=0.45)),
}


def write(path, samples):
    frames = b"".join(struct.pack("<h", int(max(-1.0, min(1.0, s)) * 32000)) for s in samples)
    with wave.open(path, "wb") as w:
        w.setnchannels(1)
        w.setsampwidth(2)
        w.setframerate(RATE)
        w.writeframes(frames)


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else "mmedia"
    os.makedirs(folder, exist_ok=True)
    for name, make in SOUNDS.items():
        write(os.path.join(folder, name), make())


if __name__ == "__main__":
    main()
