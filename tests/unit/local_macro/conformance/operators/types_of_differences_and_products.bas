' The difference of two dates is a Double; a product of Currency stays one but for floating factors.
'> Double Date Double
'> Currency Currency Double Double
Sub main()
    Debug.Print TypeName(#1/2/2020# - #1/1/2020#) & " " & TypeName(#1/2/2020# - 1) & " " & TypeName(#1/2/2020# * 2)
    Debug.Print TypeName(2@ * 2@) & " " & TypeName(2@ * 2) & " " & TypeName(2@ * 2#) & " " & TypeName(2@ / 2@)
End Sub
