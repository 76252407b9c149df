qvsen3d qvsen3d.inp
qvinv3d qvinv3d.inp NOFAST
QVerror mag.obs qvinv3d.pre error.dat mesh
