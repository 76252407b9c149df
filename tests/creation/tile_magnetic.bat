rem Coord Boundaries: 1050.12500 1100.12500 5035.00000 5070.00000
rem Cell Boundaries: 6 11 8 15
 
cd tile0202
 
 
rem extract initial model
 
DMXextract ..\mesh ..\start.sus start.sus 4 10 6 16 1 25 -Expand
 
 
rem extract reference model
 
DMXextract ..\mesh ..\ref.sus ref.sus 4 10 6 16 1 25 -Expand
 
 
rem extract bounds file
 
DMXextract ..\mesh ..\low.bnd low.bnd 4 10 6 16 1 25 -Expand -Bounds
 
 
rem run coarse forward model and calculate residual
 
@if exist mag.obs goto skipForwardModel:
 
DMXextract ..\mesh ..\refined.sus maginv3d.mod  4 10 6 16 1 25 -Expand ..\mag.obs ..\topo.dat
 
copy ..\..\base\coarse.msh tilenull.msh
DMXnullvol ..\..\base\coarse.msh ..\..\base\coarse.sus tilenull.sus 1030.13 1100.13 5025.00 5080.00 300.063 400.063
 
magfor3d tilenull.msh mag.dat tilenull.sus ..\..\base\topo.dat
 
DMXdelreg mag.dat - magfor3d.mag mag.obs  50.5  2
 
:skipForwardModel
 
@if exist maginv3d.mtx goto skipsen:
pfweight mag_weights.inp 8
magsen3d magsen3d.inp
 
:skipsen
 
@if exist maginv3d.kap goto RestartInversion:
maginv3d maginv3d.inp
goto :FinishInversion
 
:RestartInversion
 
maginv3d maginv3d.restart
 
:FinishInversion
 
dmxerror mag.obs maginv3d.pre error.dat mesh
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 6 10 8 14 1 25 10 5
 
 
cd ..
