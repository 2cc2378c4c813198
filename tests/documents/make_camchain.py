"""Writes a calibration of ours (without K3 to K6) as a camera chain in metres.   make_camchain.py CALIB.json COLUMNSxROWS OUTPUT"""

import json
import math
import pathlib
import sys

CAMERA = """cam{index}:
{pose}  camera_model: pinhole
  distortion_coeffs: [{K1}, {K2}, {P1}, {P2}]
  distortion_model: radtan
  intrinsics: [{Fx}, {Fy}, {Cx}, {Cy}]
  resolution: [{columns}, {rows}]
"""


def product(a, b):
    return [[sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)] for i in range(3)]


def rotation(turn):
    """Rz Rx Ry."""
    (sx, cx), (sy, cy), (sz, cz) = ((math.sin(turn[axis]), math.cos(turn[axis])) for axis in ("RX", "RY", "RZ"))
    about_x, about_y = [[1, 0, 0], [0, cx, -sx], [0, sx, cx]], [[cy, 0, sy], [0, 1, 0], [-sy, 0, cy]]
    return product(product([[cz, -sz, 0], [sz, cz, 0], [0, 0, 1]], about_x), about_y)


def main():
    calibration = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    columns, rows = sys.argv[2].split("x")
    right = calibration["IR_R"]
    place = [right["Translate"][axis] / 1000 for axis in ("TX", "TY", "TZ")]
    lines = [f"  - [{', '.join(map(repr, [*row, shift]))}]\n" for row, shift in zip(rotation(right["Rotate"]), place)]
    pose = f"  T_cn_cnm1:\n{''.join(lines)}  - [0.0, 0.0, 0.0, 1.0]\n"
    text = "".join(CAMERA.format(index=index, pose=pose if index else "", columns=columns, rows=rows, **calibration[name])
                   for index, name in enumerate(("IR_L", "IR_R")))
    pathlib.Path(sys.argv[3]).write_text(text, encoding="utf-8")


main()
