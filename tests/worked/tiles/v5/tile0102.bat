rem Coord Boundaries: 1600.00000 1700.00000 5440.00000 5520.00000
rem Cell Boundaries: 3 5 5 7
 
cd tile0102
 
 
rem extract reference model
 
DMXextract ..\mesh ..\known.sus known.sus 3 5 4 7 1 4 -Expand
 
 
rem extract bounds file
 
DMXextract ..\mesh ..\low.bnd low.bnd 3 5 4 7 1 4 -Expand -Bounds
 
 
rem run coarse forward model and calculate residual
 
@if exist mag.obs goto skipForwardModel:
 
DMXextract ..\mesh ..\refined.sus maginv3d.mod  3 5 4 7 1 4 -Expand ..\mag.obs ..\topo.dat
 
copy ..\..\input\base.msh tilenull.msh
DMXnullvol ..\..\input\base.msh ..\..\input\base.sus tilenull.sus 1600.00 1750.00 5400.00 5560.00 100.000 200.000
 
magfor3d tilenull.msh mag.dat tilenull.sus ..\..\input\topo.dat
 
DMXdelreg mag.dat - magfor3d.mag mag.obs  12.5  .5
 
:skipForwardModel
 
@if exist maginv3d.mtx goto skipsen:
pfweight mag_weights.inp 4
magsen3d magsen3d.inp
 
:skipsen
 
@if exist maginv3d.kap goto RestartInversion:
maginv3d maginv3d.inp
goto :FinishInversion
 
:RestartInversion
 
maginv3d maginv3d.restart
 
:FinishInversion
 
dmxerror mag.obs maginv3d.pre error.dat mesh
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 3 4 5 6 1 4 1 1
 
 
cd ..
