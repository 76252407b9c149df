dmxerror mag.obs maginv3d.pre error.dat mesh
