pfweight mag_weights.inp 4
maginv3d maginv3d.inp 4
dmxerror mag.obs maginv3d.pre error.dat mesh
