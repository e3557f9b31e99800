import numpy as np
import materiallibrary as ml

lib = ml.open("DefaultMaterialD.mat")
core = lib["FR4 Standard Core 0.20 mm"]
print(core)
f = np.geomspace(1.5e6, 15e9, 5)
for hertz, eps in zip(f, core.permittivity(f, temperature=25)):
    print(f"{hertz / 1e6:8.1f} MHz  Er {eps.real:.4f}  tan(delta) {-eps.imag / eps.real:.5f}")
