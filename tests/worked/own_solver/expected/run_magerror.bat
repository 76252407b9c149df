QVerror mag.obs qvinv3d.pre error.dat mesh
