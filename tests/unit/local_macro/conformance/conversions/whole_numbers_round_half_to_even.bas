' Every conversion to a whole number rounds a half to the even neighbour.
'> 0 2 2 4 -2 -4
'> 0 2 2 4 -2 -4
'> 0 2 2 4 -2 -4
'> 0 2 2 4
Sub main()
    Debug.Print CInt(0.5) & " " & CInt(1.5) & " " & CInt(2.5) & " " & CInt(3.5) & " " & CInt(-1.5) & " " & CInt(-3.5)
    Debug.Print CLng(0.5) & " " & CLng(1.5) & " " & CLng(2.5) & " " & CLng(3.5) & " " & CLng(-1.5) & " " & CLng(-3.5)
    Debug.Print CLngLng(0.5) & " " & CLngLng(1.5) & " " & CLngLng(2.5) & " " & CLngLng(3.5) & " " & CLngLng(-1.5) & _
        " " & CLngLng(-3.5)
    Debug.Print CByte(0.5) & " " & CByte(1.5) & " " & CByte(2.5) & " " & CByte(3.5)
End Sub
